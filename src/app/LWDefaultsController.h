#pragma once

class LWDefaults;

// Registers the fallback value of every "LW_" setting once at start-up and
// can reset the store to them.
class LWDefaultsController
{
public:
    explicit LWDefaultsController(LWDefaults &store);
    LWDefaultsController();

    // Removes every key the store holds, then writes the store out, so that
    // every key reads its registered value again.
    void resetDefaults();

private:
    LWDefaults &defaults;
};
