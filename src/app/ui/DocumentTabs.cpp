#include "app/ui/DocumentTabs.h"

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

void DocumentTabs::showInCurrentTab(const LWDocument::Ptr &document)
{
    const int index = currentIndex();
    if (index < 0 || index >= static_cast<int>(documents.size())) {
        addDocument(document);
        return;
    }
    documents[index] = document;
    setTabText(index, document->label());
}
