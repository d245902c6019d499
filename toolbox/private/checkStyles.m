function text = checkStyles()
%checkStyles  How the page of a check looks: light and dark as the reader's system is, light on paper.
text = strjoin({
    ':root { color-scheme: light dark; --text: #1b1f24; --page: #ffffff; --soft: #f3f5f7;'
    '  --bad: #b3261e; --good: #1d6b3a; --fair: #8a5a00; }'
    '@media screen and (prefers-color-scheme: dark) {'
    '  :root { --text: #e6e8ea; --page: #15181c; --soft: #20252b; --bad: #ff8a80; --good: #7fd49b; --fair: #f0b954; } }'
    'body { font: 16px/1.5 sans-serif; color: var(--text); background: var(--page);'
    '  max-width: 60em; margin: auto; padding: 1em; overflow-wrap: anywhere; }'
    'h1 { font-size: 1.7em; line-height: 1.2; } a { color: inherit; }'
    '.verdict { font-size: 1.6em; font-weight: bold; margin: 0.5em 0; color: var(--good); }'
    '.verdict.failures, .failure h3 { color: var(--bad); } .note h3 { color: var(--fair); }'
    '.wide { overflow-x: auto; } table { border-collapse: collapse; width: 100%; font-size: 0.9em; }'
    'th, td { text-align: left; padding: 0.15em 0.6em; overflow-wrap: normal; }'
    'th + th, td + td { white-space: nowrap; }'
    'tr:nth-child(even), pre { background: var(--soft); }'
    'pre { padding: 0.6em; white-space: pre-wrap; font-size: 0.9em; }'
    'svg { vertical-align: middle; } svg path { stroke: var(--text); fill: none; }'
    'svg text { fill: var(--text); font-size: 11px; } svg rect, svg circle { fill: var(--good); }'
    'svg .beyond { fill: var(--bad); } svg .noted { fill: var(--fair); } .map { display: block; max-width: 44em; }'
    '@media print { :root { color-scheme: light; } section, tr, .map { break-inside: avoid; }'
    '  h2, h3 { break-after: avoid; } pre { border: 1px solid #999999; }'
    '  body { max-width: none; padding: 0; font-size: 11pt; } }'
    ''}.', sprintf('\n'));
end
