classdef DataQueue < handle
    % Calls what is to be called at each message at once.
    properties
        listener
    end
    methods
        function afterEach(self, listener)
            self.listener = listener;
        end

        function send(self, message)
            self.listener(message);
        end
    end
end
