#pragma once

#include <QWebEngineUrlSchemeHandler>

class QWebEngineProfile;

// Serves the texts the shell offers to its editor page (TextOffers) as UTF-8,
// each once, to local pages only. A page fetches one with a synchronous
// request while it switches documents, which moves a large text much faster
// than a script literal that the page would have to parse.
class TextOfferSchemeHandler : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    // Declares the scheme to the web engine; call before QApplication exists.
    static void registerScheme();

    // Serves offers to the profile's pages (once per profile). Without a
    // registered scheme, nothing is installed and texts go inside scripts.
    static void installOn(QWebEngineProfile *profile);

    void requestStarted(QWebEngineUrlRequestJob *job) override;

private:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;
};
