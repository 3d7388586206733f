# Preview Markdown: renders the common Markdown forms (headings, paragraphs,
# emphasis, inline and fenced code, lists, quotes, links, images, rules) to
# HTML and shows it in the utility pane.
#
# Plugin API used (provided by the page's plugin runtime, `plugin` in scope):
#   plugin.editor.text()              the whole text
#   plugin.document.path()            full path of the document, "" when untitled
#   plugin.utility.show(html, label, basePath)
#                                     shows HTML in the utility pane

escapeHTML = (text) ->
  text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
    .replace(/"/g, "&quot;").replace(/'/g, "&#39;")

# Link and image targets may be web, mail or relative addresses only; any
# other scheme (javascript:, data:, file:) or a control character, which the
# browser would strip before reading the scheme, turns the target into "#".
safeTarget = (target) ->
  return "#" if /[\x00-\x20\x7f]/.test(target)
  return target unless /^[a-z][a-z0-9+.-]*:/i.test(target)
  if /^(https?|mailto):/i.test(target) then target else "#"

# Works on escaped text, so what it inserts into attributes holds no quote.
inline = (text) ->
  escapeHTML(text)
    .replace(/`([^`]+)`/g, "<code>$1</code>")
    .replace(/!\[([^\]]*)\]\(([^)\s]+)\)/g, (all, alt, src) -> "<img alt=\"#{alt}\" src=\"#{safeTarget src}\">")
    .replace(/\[([^\]]+)\]\(([^)\s]+)\)/g, (all, label, href) -> "<a href=\"#{safeTarget href}\">#{label}</a>")
    .replace(/(\*\*|__)(.+?)\1/g, "<strong>$2</strong>")
    .replace(/(\*|_)(.+?)\1/g, "<em>$2</em>")

# Turns the lines into blocks: each rule below consumes the lines of one block.
render = (markdown) ->
  lines = markdown.replace(/\r\n?/g, "\n").split("\n")
  html = []
  i = 0
  while i < lines.length
    line = lines[i]
    if /^```/.test line
      code = []
      i++
      while i < lines.length and not /^```/.test lines[i]
        code.push escapeHTML(lines[i++])
      html.push "<pre><code>#{code.join "\n"}</code></pre>"
      i++
    else if match = line.match /^(#{1,6})\s+(.*)$/
      level = match[1].length
      html.push "<h#{level}>#{inline match[2]}</h#{level}>"
      i++
    else if /^(\s*[-*_]){3,}\s*$/.test line
      html.push "<hr>"
      i++
    else if /^\s*([-*+]|\d+\.)\s+/.test line
      tag = if /^\s*\d+\./.test(line) then "ol" else "ul"
      items = []
      while i < lines.length and /^\s*([-*+]|\d+\.)\s+/.test lines[i]
        items.push "<li>#{inline lines[i++].replace(/^\s*([-*+]|\d+\.)\s+/, "")}</li>"
      html.push "<#{tag}>#{items.join ""}</#{tag}>"
    else if /^>\s?/.test line
      quoted = []
      while i < lines.length and /^>\s?/.test lines[i]
        quoted.push lines[i++].replace(/^>\s?/, "")
      html.push "<blockquote>#{render quoted.join "\n"}</blockquote>"
    else if line.trim() is ""
      i++
    else
      paragraph = []
      while i < lines.length and lines[i].trim() isnt "" and not /^(#|```|>|\s*([-*+]|\d+\.)\s)/.test lines[i]
        paragraph.push lines[i++]
      html.push "<p>#{inline paragraph.join " "}</p>"
  html.join "\n"

file = plugin.document.path()
folder = file.substring 0, file.lastIndexOf("/") + 1
# The preview runs no script at all, whatever the document holds.
policy = "<meta http-equiv=\"Content-Security-Policy\" content=\"script-src 'none'; object-src 'none'\">"
style = "<style>body{font-family:sans-serif;line-height:1.5;padding:0 1em}pre{background:#f4f4f4;padding:.5em}</style>"
plugin.utility.show policy + style + render(plugin.editor.text()), "Markdown Preview", folder
