#pragma once

#include <QString>

#include <optional>

// Texts the shell hands to its own editor page through a URL instead of a
// script: each offer is kept under an unguessable ticket and given out once.
// Only the shell's own scripts carry the URLs, so a page learns a ticket only
// when the shell sends it one. The newest few offers are kept; an offer whose
// page found the text elsewhere is dropped once newer ones push it out. Used
// on the GUI thread only.
class TextOffers
{
public:
    // The URL scheme the offers are served under.
    static QString scheme();

    // Whether a server for the scheme is installed; until one is, texts go
    // to the page inside the script.
    static bool isServed();
    static void setServed(bool served);

    // Keeps text and answers the URL that fetches it once.
    static QString offer(const QString &text);

    // The offered text for the ticket of a URL (its path after the slash),
    // once; nothing for an unknown, dropped or already fetched ticket.
    static std::optional<QString> take(const QString &ticket);
};
