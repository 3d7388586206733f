#pragma once

#include "app/LWOpenRequest.h"

#include <QString>

// A later start of the program: hands its request to the editor already
// running, if there is one.
namespace LWInstanceClient {

// True when an editor took the request. With request.wait, returns only once
// that editor has let go (the document was closed or the editor quit).
bool forward(const QString &socketName, const LWOpenRequest &request);

}
