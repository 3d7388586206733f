#pragma once

class LWFindMenuController;
class LWViewMenuController;

// Applying the stored settings to the window and a freshly loaded editor
// page: each on/off setting whose stored value differs from the state both
// start in is applied by the double flip (store the opposite, then run the
// menu toggle); then tab size, wrap limit, font size, theme and font family.
namespace StoredEditorSettings {

void apply(LWViewMenuController &view, LWFindMenuController &find);

// Sends the stored theme ("LW_Theme") to the editor; a theme that is not
// installed is logged and the editor keeps its own.
void applyTheme();

}
