# Trim Trailing Whitespace: removes blanks and tabs at the end of every line.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.transform(fn)  replaces the selection, or the whole text when
#                                nothing is selected, with fn(text)

plugin.editor.transform (text) -> text.replace /[ \t]+$/gm, ""
