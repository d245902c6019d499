function web(page)
% Plays the browser: remembers what it was to show.
global opened_in_browser
opened_in_browser = page;
end
