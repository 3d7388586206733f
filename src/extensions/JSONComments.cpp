#include "extensions/JSONComments.h"

#include "extensions/JSONCommentStripper.h"
#include "extensions/JSONSyntaxCheck.h"
#include "extensions/UTFTranscoder.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonParseError>
#include <QLoggingCategory>

#include <algorithm>
#include <optional>

Q_LOGGING_CATEGORY(lcJSONComments, "larkwood.json")

namespace {

const QString cocoaErrorDomain = QStringLiteral("NSCocoaErrorDomain");
constexpr int propertyListReadCorruptError = 3840;
constexpr int fileReadUnknownError = 256;
constexpr int fileReadNoPermissionError = 257;
constexpr int fileReadNoSuchFileError = 260;
constexpr int fileReadUnsupportedSchemeError = 262;

const char utf8Mark[] = "\xEF\xBB\xBF";

QVariant fail(LWJSONError *error, int code, const QString &description)
{
    qCWarning(lcJSONComments).noquote() << "JSON:" << description;
    if (error)
        *error = LWJSONError{cocoaErrorDomain, code, description};
    return {};
}

bool startsWith(const QByteArray &data, const char *mark, qsizetype length)
{
    return data.size() >= length && std::equal(mark, mark + length, data.constData());
}

std::optional<QByteArray> utf8From(QByteArrayView text, JSONComments::Encoding encoding)
{
    switch (encoding) {
    case JSONComments::Encoding::UTF16LittleEndian:
        return UTFTranscoder::utf8FromUTF16(text, QSysInfo::LittleEndian);
    case JSONComments::Encoding::UTF16BigEndian:
        return UTFTranscoder::utf8FromUTF16(text, QSysInfo::BigEndian);
    case JSONComments::Encoding::UTF32LittleEndian:
        return UTFTranscoder::utf8FromUTF32(text, QSysInfo::LittleEndian);
    case JSONComments::Encoding::UTF32BigEndian:
        return UTFTranscoder::utf8FromUTF32(text, QSysInfo::BigEndian);
    default:
        return text.toByteArray();
    }
}

// QJsonDocument is lenient on numbers, escapes and control characters, so
// the text must first pass the standard grammar. It also takes only an
// object or an array and refuses a leading UTF-8 mark, so the mark is dropped
// and the text is parsed as the one element of an array, which lets a scalar
// stand at the top level.
QVariant parseStrict(const QByteArray &utf8, LWJSONError *error)
{
    QByteArrayView text(utf8);
    if (startsWith(utf8, utf8Mark, 3))
        text = text.sliced(3);
    if (const auto fault = JSONSyntaxCheck::firstFault(text))
        return fail(error, propertyListReadCorruptError,
                    QStringLiteral("%1 around character %2.").arg(fault->description).arg(fault->offset));
    QByteArray wrapped;
    wrapped.reserve(text.size() + 2);
    wrapped.append('[').append(text).append(']');

    QJsonParseError parseError{};
    const QJsonArray values = QJsonDocument::fromJson(wrapped, &parseError).array();
    if (parseError.error != QJsonParseError::NoError) {
        const int offset = qMax(0, parseError.offset - 1);
        return fail(error, propertyListReadCorruptError,
                    QStringLiteral("%1 around character %2.").arg(parseError.errorString()).arg(offset));
    }
    return values.first().toVariant();
}

std::optional<QByteArray> readWholeFile(const QString &path, LWJSONError *error)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        QByteArray data = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return data;
    }
    const int code = !QFileInfo::exists(path)                        ? fileReadNoSuchFileError
                     : file.error() == QFileDevice::PermissionsError ? fileReadNoPermissionError
                                                                     : fileReadUnknownError;
    fail(error, code, QStringLiteral("The file “%1” couldn’t be read: %2.").arg(path, file.errorString()));
    return std::nullopt;
}

} // namespace

QVariant JSONComments::JSONObjectWithCommentedData(const QByteArray &data, int options, LWJSONError *error)
{
    if (data.isEmpty())
        return {};
    int markSize = 0;
    const Encoding encoding = stringEncodingFromData(data, &markSize);
    if (encoding == Encoding::Unknown || encoding == Encoding::UTF8)
        return JSONObjectWithCommentedUTF8Data(data, options, error);
    const std::optional<QByteArray> utf8 = utf8From(QByteArrayView(data).sliced(markSize), encoding);
    if (!utf8)
        return fail(error, propertyListReadCorruptError,
                    QStringLiteral("Unable to convert data to a string using the detected encoding. "
                                   "The data may be corrupt."));
    return JSONObjectWithCommentedUTF8Data(*utf8, options, error);
}

QVariant JSONComments::JSONObjectWithCommentedContentsOfFile(const QString &path, int options,
                                                             LWJSONError *error)
{
    const std::optional<QByteArray> data = readWholeFile(path, error);
    return data ? JSONObjectWithCommentedData(*data, options, error) : QVariant();
}

QVariant JSONComments::JSONObjectWithCommentedContentsOfURL(const QUrl &url, int options, LWJSONError *error)
{
    if (!url.isLocalFile())
        return fail(error, fileReadUnsupportedSchemeError,
                    QStringLiteral("The URL “%1” is not a local file.").arg(url.toString()));
    return JSONObjectWithCommentedContentsOfFile(url.toLocalFile(), options, error);
}

QVariant JSONComments::JSONObjectWithCommentedString(const QString &text, int options, LWJSONError *error)
{
    return JSONObjectWithCommentedUTF8Data(text.toUtf8(), options, error);
}

QVariant JSONComments::JSONObjectWithCommentedUTF8Data(const QByteArray &data, int /*options*/,
                                                       LWJSONError *error)
{
    return parseStrict(dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(data, 0), error);
}

QByteArray JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(const QByteArray &data,
                                                                            qsizetype skipBytes)
{
    return JSONCommentStripper::strip(data, skipBytes);
}

// Only an even length may carry a UTF-16 or UTF-32 mark. FF FE is tested
// before the UTF-32 mark, so a little-endian UTF-32 mark reads as UTF-16.
JSONComments::Encoding JSONComments::stringEncodingFromData(const QByteArray &data, int *detectedBOMSize)
{
    const auto detected = [detectedBOMSize](Encoding encoding, int markSize) {
        if (detectedBOMSize)
            *detectedBOMSize = markSize;
        return encoding;
    };
    if (data.size() % 2 == 0) {
        if (startsWith(data, "\xFF\xFE", 2))
            return detected(Encoding::UTF16LittleEndian, 2);
        if (startsWith(data, "\xFE\xFF", 2))
            return detected(Encoding::UTF16BigEndian, 2);
        if (startsWith(data, "\x00\x00\xFE\xFF", 4))
            return detected(Encoding::UTF32BigEndian, 4);
    }
    if (startsWith(data, utf8Mark, 3))
        return detected(Encoding::UTF8, 3);
    return detected(Encoding::Unknown, 0);
}

QString JSONComments::stringWithJSONObject(const QVariant &object, QJsonDocument::JsonFormat format,
                                           LWJSONError *error)
{
    const QJsonValue value = QJsonValue::fromVariant(object);
    QJsonDocument document;
    if (value.isObject())
        document.setObject(value.toObject());
    else if (value.isArray())
        document.setArray(value.toArray());
    else {
        fail(error, propertyListReadCorruptError, QStringLiteral("Invalid top-level type in JSON write."));
        return QString();
    }
    return QString::fromUtf8(document.toJson(format));
}
