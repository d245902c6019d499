function folder = isolatedFolder()
%isolatedFolder  Where that lies which is called in the library's place when the library has a process of its own.
folder = fullfile(fileparts(fileparts(fileparts(mfilename('fullpath')))), 'isolated');
end
