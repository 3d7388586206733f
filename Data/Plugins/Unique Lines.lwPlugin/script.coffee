# Unique Lines: keeps the first occurrence of every line, in order.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.transform(fn)  replaces the selection, or the whole text when
#                                nothing is selected, with fn(text)

plugin.editor.transform (text) ->
  seen = {}
  kept = []
  for line in text.split("\n") when not seen.hasOwnProperty(line)
    seen[line] = true
    kept.push line
  kept.join("\n")
