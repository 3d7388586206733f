# Sort Lines: sorts the selected lines (or all lines) in locale order.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.transform(fn)  replaces the selection, or the whole text when
#                                nothing is selected, with fn(text)

# A final line break stays at the end rather than being sorted as an empty line.

plugin.editor.transform (text) ->
  ending = text.match(/\r?\n$/)?[0] ? ""
  lines = text.substring(0, text.length - ending.length).split("\n")
  lines.sort((a, b) -> a.localeCompare b).join("\n") + ending
