# Format JSON: parses the selection (or the whole text) and writes it back
# indented by two spaces. Malformed JSON leaves the text alone and alerts.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.transform(fn)  replaces the selection, or the whole text when
#                                nothing is selected, with fn(text)
#   plugin.alert(title, text)    an alert in the main window

# A final line break is kept.

plugin.editor.transform (text) ->
  try
    ending = if /\n\s*$/.test(text) then "\n" else ""
    JSON.stringify(JSON.parse(text), null, 2) + ending
  catch error
    plugin.alert "Format JSON", "The text is not valid JSON: #{error.message}"
    text
