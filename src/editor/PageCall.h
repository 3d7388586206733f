#pragma once

// Marks the time during which the backend handles a call that a page made
// through "core". The web engine cannot deliver any page's answer to the
// shell until such a call has returned, so nothing may wait on a page (or run
// a nested event loop) meanwhile: work that needs a page's answer is queued to
// the shell's own event loop instead.
//
// Code that is about to wait asks mayWait() first. Inside a page call that is
// a programming error: it aborts in debug builds and when the environment
// variable LARKWOOD_CHECK_PAGE_CALLS is set (the tests set it); otherwise it
// is logged and the caller gives up at once instead of freezing the window.
class PageCall
{
public:
    PageCall();
    ~PageCall();
    PageCall(const PageCall &) = delete;
    PageCall &operator=(const PageCall &) = delete;

    static bool active();
    static bool mayWait(const char *what);
};
