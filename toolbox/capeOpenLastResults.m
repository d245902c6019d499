function [values, done] = capeOpenLastResults()
%capeOpenLastResults  The rows that were done when a batch of flashes was stopped.
%
%   [values, done] = capeOpenLastResults()
%
%   capeOpenMultiFlash and capeOpenMultiFlashParallel can be stopped by Ctrl-C,
%   and they end with an error when the library can not go on. The rows that
%   were done until then are kept until the next of these calls.
%
%   Results:
%     values  double N-by-k with a row for each flash and a column for each
%             result that was asked for; NaN in rows that were not done. Empty
%             after a call that came to its end.
%     done    logical N-by-1, true for the rows that were done
%
%   Example:
%     [values, done] = capeOpenLastResults();
%     left = find(~done)
%
%   See also capeOpenMultiFlash, capeOpenMultiFlashParallel.
[values, done] = keptRows('last');
end
