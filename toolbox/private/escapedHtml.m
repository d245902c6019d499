function text = escapedHtml(text)
%escapedHtml  A text as it has to stand in a page.
text = strrep(strrep(strrep(strrep(text, '&', '&amp;'), '<', '&lt;'), '>', '&gt;'), '"', '&quot;');
end
