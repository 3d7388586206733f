#pragma once

class LWFindMenuController;
class LWViewMenuController;

// Applying the stored editor settings to a freshly loaded editor page: each
// on/off setting by the double flip (store the opposite, then run the menu
// toggle), then tab size, wrap limit, font size, font family and theme.
namespace StoredEditorSettings {

void apply(LWViewMenuController &view, LWFindMenuController &find);

}
