classdef DataQueue < handle
    % Calls what is to be called at each message. The pool is lost before the one that `messages_left` counts to. If
    % `late_messages` is a cell array, they are kept there, and come when the next queue is made; every second one, if
    % the pool is lost.
    properties
        listener
    end
    methods
        function self = DataQueue()
            global late_messages
            if iscell(late_messages)
                cellfun(@(one) one.listener(one.message), late_messages);
                late_messages = {};
            end
        end

        function afterEach(self, listener)
            self.listener = listener;
        end

        function send(self, message)
            global messages_left late_messages size_of_pool
            if ~isempty(messages_left)
                messages_left = messages_left - 1;
                if messages_left == 0
                    size_of_pool = size_of_pool(2:end);
                    error('The pool has shut down');
                end
            end
            if iscell(late_messages) && (isempty(messages_left) || mod(messages_left, 2))
                late_messages{end + 1} = struct('listener', self.listener, 'message', message);
            else
                self.listener(message);
            end
        end
    end
end
