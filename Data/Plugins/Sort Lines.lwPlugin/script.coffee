# Sort Lines: sorts the selected lines (or all lines) in locale order.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.transform(fn)  replaces the selection, or the whole text when
#                                nothing is selected, with fn(text)

plugin.editor.transform (text) ->
  text.split("\n").sort((a, b) -> a.localeCompare b).join("\n")
