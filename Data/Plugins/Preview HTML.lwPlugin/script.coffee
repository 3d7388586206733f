# Preview HTML: renders the current document in the utility pane; relative
# links resolve against the document's folder.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.text()              the whole text
#   plugin.document.path()            full path of the document, "" when untitled
#   plugin.utility.show(html, label, basePath)
#                                     shows HTML in the utility pane

file = plugin.document.path()
folder = file.substring 0, file.lastIndexOf("/") + 1
plugin.utility.show plugin.editor.text(), "HTML Preview", folder
