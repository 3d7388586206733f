// Speed of the comment stripper on a large manifest-like document, next to a
// plain copy of the same bytes and to a scan of text with nothing to remove.

#include "extensions/JSONComments.h"

#include <QByteArray>

#include <chrono>
#include <cstdio>
#include <functional>

namespace {

constexpr qsizetype documentSize = 64 * 1024 * 1024;
constexpr int runs = 5;

QByteArray manifestEntry(int index)
{
    const QByteArray number = QByteArray::number(index);
    return "    // Entry " + number + ": generated plugin manifest\n"
           "    {\n"
           "        \"name\": \"Plugin " + number + "\",\n"
           "        /* The title shown in menus;\n"
           "           it may hold \"quotes\" and ünïcode. */\n"
           "        \"title\": \"Déjà vu \\\"quoted\\\" C:\\\\path\\\\to\\\\file\",\n"
           "        \"keys\": [ \"@+R\", \"$@+K\" ],  // shortcuts\n"
           "        \"url\": \"http://example.invalid/plugins/" + number + "\",\n"
           "        \"description\": \"Runs the script — ✓ with\\ttabs and 😀\",\n"
           "        \"nosandbox\": false,\n"
           "        \"version\": " + number + "\n"
           "    },\n";
}

QByteArray manifestDocument()
{
    QByteArray document("/* Generated manifest index */\n[\n");
    document.reserve(documentSize + 1024);
    for (int index = 0; document.size() < documentSize - 2; ++index)
        document += manifestEntry(index);
    document += "    {}\n]\n";
    return document;
}

// The best time of a few runs, in seconds.
double bestSeconds(const std::function<qsizetype()> &work)
{
    double best = 1e9;
    qsizetype sink = 0;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        sink += work();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        best = std::min(best, elapsed.count());
    }
    if (sink < 0)
        std::puts("unreachable");
    return best;
}

} // namespace

int main()
{
    const QByteArray document = manifestDocument();
    const double megabytes = double(document.size()) / 1e6;
    const double stripSeconds = bestSeconds([&] {
        return JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(document, 0).size();
    });
    // Compact text has nothing to remove: the scan alone, with no output buffer.
    const QByteArray compact = JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(document, 0);
    const double scanSeconds = bestSeconds([&] {
        return JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(compact, 0).size();
    });
    const double copySeconds = bestSeconds([&] {
        const QByteArray copy(document.constData(), document.size());
        return qsizetype(copy.at(copy.size() / 2));
    });

    const double compactMegabytes = double(compact.size()) / 1e6;
    std::printf("document: %.1f MB, stripped to %.1f MB\n", megabytes, compactMegabytes);
    std::printf("strip: %.0f MB/s (%.1f ms)\n", megabytes / stripSeconds, stripSeconds * 1000);
    std::printf("copy:  %.0f MB/s (%.1f ms)\n", megabytes / copySeconds, copySeconds * 1000);
    std::printf("scan of compact text: %.0f MB/s (%.1f ms)\n", compactMegabytes / scanSeconds, scanSeconds * 1000);
    std::printf("strip / copy speed ratio: %.3f\n", copySeconds / stripSeconds);
    return 0;
}
