# Fails when a larkwood-core source includes a widget or web-engine header.
separate_arguments(files UNIX_COMMAND "${SOURCES}")
foreach(f IN LISTS files)
  file(STRINGS "${f}" hits REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](QtWidgets|QtWebEngine|QtWebChannel|QtSvgWidgets|QtPrintSupport|QWidget|QWebEngine|QWebChannel|QMainWindow|QApplication|QDialog|QMessageBox)")
  if(hits)
    message(FATAL_ERROR "larkwood-core must not use widgets or the web engine: ${f}: ${hits}")
  endif()
endforeach()
