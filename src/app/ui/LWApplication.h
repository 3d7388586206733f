#pragma once

// Starts the editor: the application object, the main window, and the
// optional screenshot-and-quit mode used to look at the window headless.
namespace LWApplication {

int run(int argc, char *argv[]);

}
