# Run: saves the current document and runs it in the terminal pane with the
# program named by this plugin's manifest ("program": python3, node, bash, lua).
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.info                 this plugin's manifest (object)
#   plugin.document.path()      full path of the current document, "" when untitled
#   plugin.document.save()      saves the current document; a Promise of its
#                               path, "" when it could not be saved
#   plugin.terminal.run(argv)   runs argv in the terminal pane, output streamed there
#   plugin.alert(title, text)   an alert in the main window

file = plugin.document.path()
if file is ""
  plugin.alert "Run", "Save the document to a file before running it."
else
  plugin.document.save().then (saved) ->
    plugin.terminal.run [plugin.info.program, file] if saved
