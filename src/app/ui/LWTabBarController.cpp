#include "app/ui/LWTabBarController.h"

#include "app/roles/ShellOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/ui/TabBarView.h"

LWTabBarController::LWTabBarController(TabBarView &tabBar, Manager manager, ShellOutline &outline)
    : manager(std::move(manager)), outline(outline)
{
    connect(&tabBar, &TabBarView::tabDidActived, this, &LWTabBarController::tabDidActived);
}

// The switch comes first, so that selecting the now current document in the
// sidebar does not open it a second time.
void LWTabBarController::tabDidActived(TabCell *tab)
{
    const LWDocument::Ptr document = tab ? tab->linkedDocument() : nullptr;
    if (!document)
        return;
    manager().switchToDoc(document);
    outline.selectInOutline(document);
}
