#include "app/ui/Spinner.h"

#include <QProgressBar>

namespace {

constexpr int spinnerWidth = 60;
constexpr int spinnerHeight = 12;

}

QProgressBar *makeSpinner(QWidget *parent)
{
    auto *bar = new QProgressBar(parent);
    bar->setRange(0, 1);
    bar->setTextVisible(false);
    bar->setFixedSize(spinnerWidth, spinnerHeight);
    return bar;
}
