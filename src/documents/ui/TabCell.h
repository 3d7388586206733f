#pragma once

#include "documents/LWDocument.h"

#include <QRect>
#include <QString>

#include <memory>

class QFont;
class QPainter;
struct TabBarPalette;

// One tab of the document tab bar: its title, the document it shows, where
// the bar has laid it out and whether it is the active one. The bar draws
// and hit-tests its tabs through these.
class TabCell
{
public:
    explicit TabCell(const LWDocument::Ptr &document);

    // The document's label, so that a rename shows at once; "" once the
    // document is gone.
    QString title() const;
    LWDocument::Ptr linkedDocument() const { return document.lock(); }
    bool isLinkedTo(const LWDocument::Ptr &node) const { return node && linkedDocument() == node; }
    bool hasLostDocument() const { return document.expired(); }
    // The document's full path, or its title when it has no file.
    QString toolTip() const;
    bool isUnsaved() const;

    QRect frame() const { return tabFrame; }
    void setFrame(const QRect &frame) { tabFrame = frame; }
    void setActived(bool active) { actived = active; }
    bool contains(const QPoint &point) const { return tabFrame.contains(point); }
    QRect closeButtonRect() const;

    void draw(QPainter &painter, const TabBarPalette &colors, const QFont &font) const;

private:
    void drawCloseButton(QPainter &painter, const TabBarPalette &colors) const;

    std::weak_ptr<LWDocument> document;
    QRect tabFrame;
    bool actived = false;
};
