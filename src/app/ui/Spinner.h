#pragma once

class QProgressBar;
class QWidget;

// A small busy indicator: a thin bar without text, idle until its range is
// set to (0, 0).
QProgressBar *makeSpinner(QWidget *parent);
