// Registry creation with every shipped bundle: the ordinary start (data root
// already prepared, nothing copied or installed), timed over several runs,
// and the memory one registry keeps.
#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"
#include "terminal/LWTerminal.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <malloc.h>

namespace {

// Heap bytes in use (freed blocks of earlier runs are not counted).
size_t heapInUse()
{
    return mallinfo2().uordblks;
}

double millisecondsPerRun(int runs, const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < runs; ++i)
        work();
    return timer.nsecsElapsed() / 1e6 / runs;
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dataHome;
    qputenv("XDG_DATA_HOME", dataHome.path().toUtf8());

    QElapsedTimer firstRun;
    firstRun.start();
    LWEnvironment().load();
    std::printf("first run (copy Data, install every bundle, LESS compiles started): %.0f ms\n",
                firstRun.nsecsElapsed() / 1e6);

    const int runs = 20;
    const double withPath = millisecondsPerRun(runs, [] { LWEnvironment().load(); });
    const double pathOnly = millisecondsPerRun(runs, [] { LWTerminal::getPath(); });

    const size_t before = heapInUse();
    auto kept = std::make_unique<LWEnvironment>();
    kept->load();
    const size_t after = heapInUse();
    int templates = 0;
    int specPlugins = 0;
    for (const LWSpec *spec : kept->specs()) {
        templates += spec->templates().size();
        specPlugins += spec->plugins().size();
    }

    std::printf("bundles: %lld themes, %lld specifications (%d templates, %d own plugins), %lld plugins, %lld extensions\n",
                qlonglong(kept->themes().size()), qlonglong(kept->specs().size()), templates, specPlugins,
                qlonglong(kept->plugins().size()), qlonglong(kept->extensions().size()));
    std::printf("ordinary start: %.1f ms per registry (of which %.1f ms the login PATH), %d runs, updated=%d\n",
                withPath, pathOnly, runs, int(kept->wasUpdated()));
    std::printf("heap kept by one registry: %zu KiB\n", (after - before) / 1024);
    return 0;
}
