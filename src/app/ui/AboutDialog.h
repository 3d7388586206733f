#pragma once

class QDialog;
class QWidget;

// The About window: product name, version and build number, the web page
// and the credits ("Credits.rtf" of the resource folder, shown as plain
// text when present). Window-modal over the main window; returns at once.
namespace AboutDialog {

QDialog *show(QWidget *window);

}
