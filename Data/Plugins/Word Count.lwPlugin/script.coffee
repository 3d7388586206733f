# Word Count: shows the line, word and character counts of the selection (or
# the whole text) in the status bar.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.selection()  the selected text, "" when nothing is selected
#   plugin.editor.text()       the whole text
#   plugin.status(message)     a message in the status bar

text = plugin.editor.selection() or plugin.editor.text()
words = text.split(/\s+/).filter((word) -> word.length > 0).length
lines = if text is "" then 0 else text.split("\n").length
plugin.status "#{lines} lines, #{words} words, #{text.length} characters"
