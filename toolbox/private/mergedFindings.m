function tally = mergedFindings(tally)
%mergedFindings  One finding, the worst, for the same thing that was found at several states, and one bar.
[names, ~, kind] = unique({tally.findings.what});
findings = tally.findings(zeros(1, 0));
for k = 1:numel(names)
    same = tally.findings(kind == k);
    [~, worst] = max([same.size] ./ [same.limit]);
    finding = same(worst);
    [finding.count, finding.asked] = deal(sum([same.count]), sum([same.asked]));
    [finding.T, finding.P] = deal(vertcat(same.T), vertcat(same.P));
    findings(end + 1) = finding; %#ok<AGROW>
end
tally.findings = findings;
[names, ~, kind] = unique({tally.bars.what});
bars = tally.bars(zeros(1, 0));
for k = 1:numel(names)
    same = tally.bars(kind == k);
    bars(end + 1) = struct('what', names{k}, 'ratio', max([same.ratio]), 'asked', sum([same.asked])); %#ok<AGROW>
end
tally.bars = bars;
end
