#include "app/ui/DocumentTabs.h"

#include <algorithm>

DocumentTabs::DocumentTabs(QWidget *parent) : QTabBar(parent)
{
    setDocumentMode(true);
    setExpanding(false);
    setElideMode(Qt::ElideMiddle);
    connect(this, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index < 0 || index >= static_cast<int>(documents.size()))
            return;
        if (const LWDocument::Ptr document = documents.at(index).lock())
            emit documentChosen(document);
    });
}

void DocumentTabs::addDocument(const LWDocument::Ptr &document)
{
    if (!document)
        return;
    documents.push_back(document);
    setCurrentIndex(addTab(document->label()));
}

void DocumentTabs::showDocument(const LWDocument::Ptr &document)
{
    const auto shown = std::find_if(documents.begin(), documents.end(),
                                    [&](const std::weak_ptr<LWDocument> &tab) { return tab.lock() == document; });
    if (shown != documents.end()) {
        setCurrentIndex(static_cast<int>(shown - documents.begin()));
        return;
    }
    const auto gone = std::find_if(documents.begin(), documents.end(),
                                   [](const std::weak_ptr<LWDocument> &tab) { return tab.expired(); });
    if (gone == documents.end()) {
        addDocument(document);
        return;
    }
    *gone = document;
    const int index = static_cast<int>(gone - documents.begin());
    setTabText(index, document->label());
    setCurrentIndex(index);
    emit tabsChanged();
}

std::vector<LWDocument::Ptr> DocumentTabs::openDocuments() const
{
    std::vector<LWDocument::Ptr> open;
    for (const std::weak_ptr<LWDocument> &tab : documents) {
        if (LWDocument::Ptr document = tab.lock())
            open.push_back(document);
    }
    return open;
}

LWDocument::Ptr DocumentTabs::selectedDocument() const
{
    const int index = currentIndex();
    return index >= 0 && index < static_cast<int>(documents.size()) ? documents.at(index).lock() : nullptr;
}

void DocumentTabs::tabInserted(int index)
{
    QTabBar::tabInserted(index);
    emit tabsChanged();
}

void DocumentTabs::tabRemoved(int index)
{
    QTabBar::tabRemoved(index);
    emit tabsChanged();
}
