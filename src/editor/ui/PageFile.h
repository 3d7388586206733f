#pragma once

#include <QString>

// The editor pages are read as UTF-8 text and loaded with their own address
// as base; a missing file reads as "" and loads as an empty page.
namespace PageFile {

QString text(const QString &path);

// "Data/Html/uindex.html" under the data root: the utility page and the base
// for relative addresses in utility content.
QString utilityPagePath();

}
