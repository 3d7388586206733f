#pragma once

#include <QString>

class LWDocumentManager;

// The folder a terminal command starts in when no earlier command has left
// one: the current document's folder; for an untitled document (or none)
// the first folder of the workspace; failing both, the home folder.
namespace TerminalStartFolder {

QString forWorkspace(const LWDocumentManager *documents);

}
