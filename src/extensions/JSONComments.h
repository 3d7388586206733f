#pragma once

#include "extensions/LWJSONError.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QString>
#include <QUrl>
#include <QVariant>

// The comment-tolerant JSON reader that every JSON file and every JSON
// argument from the editor page goes through, and the matching writer.
//
// Readers detect the encoding from a byte-order mark, re-encode UTF-16 and
// UTF-32 text as UTF-8, remove comments and layout whitespace, and hand the
// rest to the strict parser. Their result is a QVariant holding a
// QVariantMap, QVariantList, QString, number, bool or null; an invalid
// QVariant means "no object". The options are parser options, handed on as
// they are: the strict parser here always answers plain values and accepts
// a scalar at the top level, so none of them changes the result.
class JSONComments
{
public:
    enum class Encoding { Unknown, UTF8, UTF16LittleEndian, UTF16BigEndian, UTF32LittleEndian, UTF32BigEndian };

    static QVariant JSONObjectWithCommentedData(const QByteArray &data, int options = 0,
                                                LWJSONError *error = nullptr);
    static QVariant JSONObjectWithCommentedContentsOfFile(const QString &path, int options = 0,
                                                          LWJSONError *error = nullptr);
    // Only local file URLs can be read.
    static QVariant JSONObjectWithCommentedContentsOfURL(const QUrl &url, int options = 0,
                                                         LWJSONError *error = nullptr);
    static QVariant JSONObjectWithCommentedString(const QString &text, int options = 0,
                                                  LWJSONError *error = nullptr);
    static QVariant JSONObjectWithCommentedUTF8Data(const QByteArray &data, int options = 0,
                                                    LWJSONError *error = nullptr);

    // See JSONCommentStripper.
    static QByteArray dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(const QByteArray &data,
                                                                         qsizetype skipBytes);

    // The encoding named by the data's byte-order mark and the mark's length.
    static Encoding stringEncodingFromData(const QByteArray &data, int *detectedBOMSize = nullptr);

    // The object written with sorted keys as UTF-8 text; a null string when
    // the object is not a map or a list.
    static QString stringWithJSONObject(const QVariant &object,
                                        QJsonDocument::JsonFormat format = QJsonDocument::Compact,
                                        LWJSONError *error = nullptr);
};
