#include "app/ui/LWWindowMenuController.h"

#include "app/roles/ShellOutline.h"
#include "app/ui/TabClosing.h"
#include "documents/ui/TabBarView.h"

LWWindowMenuController::LWWindowMenuController(TabBarView &tabBar, ShellOutline &outline, TabClosing &closing)
    : tabBar(tabBar), outline(outline), closing(closing)
{
}

// Selecting a file row in the sidebar opens it, in its tab.
void LWWindowMenuController::nextDocumentAction()
{
    if (const std::shared_ptr<LWDocument> next = outline.nextDocumentInOutline())
        outline.selectInOutline(next);
}

void LWWindowMenuController::previousDocumentAction()
{
    if (const std::shared_ptr<LWDocument> previous = outline.previousDocumentInOutline())
        outline.selectInOutline(previous);
}

void LWWindowMenuController::nextTabAction()
{
    stepTab(1);
}

void LWWindowMenuController::previousTabAction()
{
    stepTab(-1);
}

void LWWindowMenuController::stepTab(int step)
{
    const int count = tabBar.count();
    if (count < 2)
        return;
    const int index = tabBar.indexOf(tabBar.selectedTab());
    tabBar.setAsActiveTab(tabBar.tabAt((index + step + count) % count));
}

void LWWindowMenuController::closeTabAction()
{
    if (TabCell *tab = tabBar.selectedTab())
        closing.close(tab);
}

void LWWindowMenuController::closeAllAction()
{
    closing.closeAll();
}

bool LWWindowMenuController::validateMenuItem(const QString &action) const
{
    if (action == QLatin1String("nextDocumentAction:"))
        return outline.nextDocumentInOutline() != nullptr;
    if (action == QLatin1String("previousDocumentAction:"))
        return outline.previousDocumentInOutline() != nullptr;
    if (action == QLatin1String("nextTabAction:") || action == QLatin1String("previousTabAction:"))
        return tabBar.count() > 1;
    return true;
}
