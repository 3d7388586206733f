#include "editor/PageCall.h"

#include <QtGlobal>

namespace {

// Page calls arrive on the main thread only.
int depth = 0;

bool strictChecks()
{
#ifdef QT_DEBUG
    return true;
#else
    static const bool requested = qEnvironmentVariableIsSet("LARKWOOD_CHECK_PAGE_CALLS");
    return requested;
#endif
}

}

PageCall::PageCall()
{
    ++depth;
}

PageCall::~PageCall()
{
    --depth;
}

bool PageCall::active()
{
    return depth > 0;
}

bool PageCall::mayWait(const char *what)
{
    if (depth == 0)
        return true;
    if (strictChecks())
        qFatal("Waiting inside a page's call into the backend (%s): the page could never answer", what);
    qWarning("Not waiting inside a page's call into the backend (%s); the operation gives up", what);
    return false;
}
