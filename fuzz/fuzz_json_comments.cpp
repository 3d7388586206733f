// Feeds arbitrary bytes to the comment stripper and to the full reader. The
// bytes are used in place (libFuzzer allocates exactly their size, with no
// terminating zero), so the address sanitizer catches any read past the end.

#include "extensions/JSONComments.h"

#include <QLoggingCategory>

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    QLoggingCategory::setFilterRules(QStringLiteral("larkwood.json.warning=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char *>(bytes), qsizetype(size));

    // Stripping only ever removes bytes; an unchanged length means unchanged bytes.
    const QByteArray stripped = JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(data, 0);
    if (stripped.size() > data.size())
        std::abort();
    if (stripped.size() == data.size() && std::memcmp(stripped.constData(), data.constData(), size) != 0)
        std::abort();

    LWJSONError error;
    const QVariant object = JSONComments::JSONObjectWithCommentedData(data, 0, &error);
    if (object.isValid())
        JSONComments::stringWithJSONObject(object, QJsonDocument::Compact, &error);
    return 0;
}
