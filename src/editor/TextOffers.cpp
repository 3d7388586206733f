#include "editor/TextOffers.h"

#include <QRandomGenerator>

#include <deque>
#include <utility>

namespace {

constexpr std::size_t KeptOffers = 8;

struct Offer
{
    QString ticket;
    QString text;
};

std::deque<Offer> &offers()
{
    static std::deque<Offer> kept;
    return kept;
}

bool served = false;

QString newTicket()
{
    quint32 words[4];
    QRandomGenerator::system()->fillRange(words);
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(words), sizeof words).toHex());
}

}

QString TextOffers::scheme()
{
    return QStringLiteral("lwtext");
}

bool TextOffers::isServed()
{
    return served;
}

void TextOffers::setServed(bool isServed)
{
    served = isServed;
}

QString TextOffers::offer(const QString &text)
{
    Offer offer{newTicket(), text};
    const QString url = scheme() + QStringLiteral("://offer/") + offer.ticket;
    offers().push_back(std::move(offer));
    if (offers().size() > KeptOffers)
        offers().pop_front();
    return url;
}

std::optional<QString> TextOffers::take(const QString &ticket)
{
    for (auto offer = offers().begin(); offer != offers().end(); ++offer) {
        if (offer->ticket == ticket) {
            QString text = std::move(offer->text);
            offers().erase(offer);
            return text;
        }
    }
    return std::nullopt;
}
