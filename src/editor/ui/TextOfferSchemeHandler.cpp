#include "editor/ui/TextOfferSchemeHandler.h"

#include "editor/TextOffers.h"

#include <QBuffer>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <QtDebug>

namespace {

QByteArray schemeName()
{
    return TextOffers::scheme().toLatin1();
}

void refuse(QWebEngineUrlRequestJob *job, const char *reason)
{
    qWarning("Refused %s: %s", qPrintable(job->requestUrl().toString().left(120)), reason);
    job->fail(QWebEngineUrlRequestJob::RequestDenied);
}

}

void TextOfferSchemeHandler::registerScheme()
{
    QWebEngineUrlScheme scheme(schemeName());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    // Local, so the editor page (a file) may read it and remote pages may not.
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void TextOfferSchemeHandler::installOn(QWebEngineProfile *profile)
{
    if (profile->urlSchemeHandler(schemeName()))
        return;
    if (QWebEngineUrlScheme::schemeByName(schemeName()).name().isEmpty()) {
        qWarning("The %s scheme is not registered; documents go to the editor page inside scripts",
                 schemeName().constData());
        return;
    }
    profile->installUrlSchemeHandler(schemeName(), new TextOfferSchemeHandler(profile));
    TextOffers::setServed(true);
}

void TextOfferSchemeHandler::requestStarted(QWebEngineUrlRequestJob *job)
{
    if (job->requestMethod() != "GET")
        return refuse(job, "only GET is served");
    if (job->initiator().scheme() != QLatin1String("file"))
        return refuse(job, "only the shell's own pages may fetch document texts");
    const std::optional<QString> text = TextOffers::take(job->requestUrl().path().mid(1));
    if (!text)
        return refuse(job, "no such text on offer (unknown, already fetched or dropped)");
    auto *body = new QBuffer(job);
    body->setData(text->toUtf8());
    job->reply(QByteArrayLiteral("text/plain;charset=utf-8"), body);
}
