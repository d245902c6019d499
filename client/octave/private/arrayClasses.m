function [names, bytes] = arrayClasses()
%arrayClasses  The classes by the numbers that they have in messages, and how many bytes an element has there.
names = {'cell', '', 'logical', 'char', '', 'double', 'single', 'int8', 'uint8', 'int16', 'uint16', 'int32', ...
         'uint32', 'int64', 'uint64'};
bytes = [0 0 1 2 0 8 4 1 1 2 2 4 4 8 8];
end
