#include "extensions/JSONComments.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using Encoding = JSONComments::Encoding;

class TestJSONComments : public QObject
{
    Q_OBJECT

private slots:
    void detectsEncodingFromMark_data();
    void detectsEncodingFromMark();
    void strips_data();
    void strips();
    void returnsUntouchedInputItself();
    void readsEveryEncoding_data();
    void readsEveryEncoding();
    void reportsUndecodableText();
    void answersNoneForEmptyOrBrokenText();
    void followsTheStandardGrammar_data();
    void followsTheStandardGrammar();
    void survivesDeepNesting();
    void readsFilesAndURLs();
    void writesSortedKeys();
};

void TestJSONComments::detectsEncodingFromMark_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<Encoding>("encoding");
    QTest::addColumn<int>("markSize");

    QTest::newRow("empty") << QByteArray() << Encoding::Unknown << 0;
    QTest::newRow("one byte") << QByteArray("\xFF") << Encoding::Unknown << 0;
    QTest::newRow("UTF-16 LE") << QByteArray("\xFF\xFE{\0", 4) << Encoding::UTF16LittleEndian << 2;
    QTest::newRow("UTF-16 BE") << QByteArray("\xFE\xFF") << Encoding::UTF16BigEndian << 2;
    QTest::newRow("UTF-32 LE mark reads as UTF-16") << QByteArray("\xFF\xFE\0\0", 4)
                                                  << Encoding::UTF16LittleEndian << 2;
    QTest::newRow("UTF-32 BE") << QByteArray("\0\0\xFE\xFF", 4) << Encoding::UTF32BigEndian << 4;
    QTest::newRow("odd length never UTF-16") << QByteArray("\xFF\xFE{") << Encoding::Unknown << 0;
    QTest::newRow("odd length never UTF-32") << QByteArray("\0\0\xFE\xFF{", 5) << Encoding::Unknown << 0;
    QTest::newRow("UTF-8 mark, odd length") << QByteArray("\xEF\xBB\xBF") << Encoding::UTF8 << 3;
    QTest::newRow("UTF-8 mark, even length") << QByteArray("\xEF\xBB\xBF{") << Encoding::UTF8 << 3;
    QTest::newRow("no mark") << QByteArray("{}") << Encoding::Unknown << 0;
}

void TestJSONComments::detectsEncodingFromMark()
{
    QFETCH(QByteArray, data);
    QFETCH(Encoding, encoding);
    QFETCH(int, markSize);
    int detectedSize = -1;
    QCOMPARE(JSONComments::stringEncodingFromData(data, &detectedSize), encoding);
    QCOMPARE(detectedSize, markSize);
}

void TestJSONComments::strips_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("skip");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("blanks and comments") << QByteArray("{ \"a\" :\t1 /* c */\r\n}// end") << 0
                                         << QByteArray("{\"a\":1}");
    QTest::newRow("slashes in a string") << QByteArray("{\"u\": \"http://x/*y*/\"}") << 0
                                         << QByteArray("{\"u\":\"http://x/*y*/\"}");
    QTest::newRow("escaped quote") << QByteArray("[\"a\\\" b\" ]") << 0 << QByteArray("[\"a\\\" b\"]");
    QTest::newRow("escaped backslash keeps the string open") << QByteArray("[\"\\\\\", 1 ]") << 0
                                                             << QByteArray("[\"\\\\\", 1 ]");
    QTest::newRow("line feed ends a string") << QByteArray("\"a b\n c\" : 1") << 0
                                             << QByteArray("\"a b\nc\" : 1");
    QTest::newRow("carriage return ends a string") << QByteArray("\"a\r /**/ b") << 0
                                                   << QByteArray("\"a\rb");
    QTest::newRow("slash at the end") << QByteArray("1 /") << 0 << QByteArray("1/");
    QTest::newRow("slash and a letter") << QByteArray("a /b / c") << 0 << QByteArray("a/b/c");
    QTest::newRow("only comments") << QByteArray("// one\n /* two */ \r\n") << 0 << QByteArray();
    QTest::newRow("unclosed block comment") << QByteArray("1 /* 2 */ 3 /* 4 \n 5") << 0 << QByteArray("13");
    QTest::newRow("comments by multi-byte characters") << QByteArray("\"é\"/*ü*/,//ß\n\"€\"") << 0
                                                        << QByteArray("\"é\",\"€\"");
    QTest::newRow("character covering a comment end") << QByteArray("/*\xE2*/ 1 */2") << 0 << QByteArray("2");
    QTest::newRow("character covering a line end") << QByteArray("//\xC3\n1\n2") << 0 << QByteArray("2");
    QTest::newRow("character covering a blank") << QByteArray("\xFC abcd e") << 0 << QByteArray("\xFC abcde");
    QTest::newRow("character covering a quote") << QByteArray("\"\xC3\" 1 \"") << 0
                                                << QByteArray("\"\xC3\" 1 \"");
    QTest::newRow("FE is one byte") << QByteArray("\xFE \xFF ") << 0 << QByteArray("\xFE\xFF");
    QTest::newRow("truncated character") << QByteArray("1 \xF0\x9F") << 0 << QByteArray("1\xF0\x9F");
    QTest::newRow("truncated in a string") << QByteArray("\"\xE2\x82") << 0 << QByteArray("\"\xE2\x82");
    QTest::newRow("truncated in a comment") << QByteArray("1/*\xFC") << 0 << QByteArray("1");
    QTest::newRow("skipped bytes") << QByteArray("ab c d") << 3 << QByteArray("cd");
    QTest::newRow("skip past the end") << QByteArray("ab") << 9 << QByteArray();
}

void TestJSONComments::strips()
{
    QFETCH(QByteArray, input);
    QFETCH(int, skip);
    QFETCH(QByteArray, expected);
    const QByteArray stripped = JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(input, skip);
    QCOMPARE(stripped.toHex(' '), expected.toHex(' '));
}

void TestJSONComments::returnsUntouchedInputItself()
{
    const QByteArray compact("{\"a\":[1,\"b c\"]}");
    const QByteArray stripped = JSONComments::dataByStrippingJSONCommentsAndWhiteSpaceOfUTF8Data(compact, 0);
    QCOMPARE(stripped.constData(), compact.constData());
}

void TestJSONComments::readsEveryEncoding_data()
{
    const QString text = QStringLiteral("// Plugin\n{ \"name\": \"Déjà 😀\", /* list */ \"keys\": [1, 2.5, true] }\n");
    auto encoded = [&text](QStringConverter::Encoding encoding) -> QByteArray {
        return QStringEncoder(encoding, QStringConverter::Flag::WriteBom).encode(text);
    };
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with mark") << encoded(QStringConverter::Utf8);
    QTest::newRow("UTF-16 LE") << encoded(QStringConverter::Utf16LE);
    QTest::newRow("UTF-16 BE") << encoded(QStringConverter::Utf16BE);
    QTest::newRow("UTF-32 BE") << encoded(QStringConverter::Utf32BE);
}

void TestJSONComments::readsEveryEncoding()
{
    const QVariantMap expected{{"name", QStringLiteral("Déjà 😀")}, {"keys", QVariantList{1, 2.5, true}}};
    QFETCH(QByteArray, data);
    QCOMPARE(JSONComments::JSONObjectWithCommentedData(data), QVariant(expected));
}

void TestJSONComments::reportsUndecodableText()
{
    const QByteArray badUTF32("\0\0\xFE\xFF\0\x11\0\0", 8);
    const QByteArray loneSurrogate("\xFF\xFE\x00\xD8[\0]\0", 8);
    for (const QByteArray &data : {badUTF32, loneSurrogate}) {
        LWJSONError error;
        QVERIFY(!JSONComments::JSONObjectWithCommentedData(data, 0, &error).isValid());
        QCOMPARE(error.domain, QStringLiteral("NSCocoaErrorDomain"));
        QCOMPARE(error.code, 3840);
        QCOMPARE(error.description, QStringLiteral("Unable to convert data to a string using the detected "
                                                   "encoding. The data may be corrupt."));
    }
    // A UTF-32 little-endian file decodes as UTF-16 into text with NULs,
    // which the parser refuses.
    const QByteArray utf32LE = QStringEncoder(QStringConverter::Utf32LE, QStringConverter::Flag::WriteBom)
                                   .encode(QStringLiteral("[1]"));
    LWJSONError error;
    QVERIFY(!JSONComments::JSONObjectWithCommentedData(utf32LE, 0, &error).isValid());
    QVERIFY(!error.description.startsWith("Unable to convert"));
}

void TestJSONComments::answersNoneForEmptyOrBrokenText()
{
    LWJSONError untouched;
    QVERIFY(!JSONComments::JSONObjectWithCommentedData(QByteArray(), 0, &untouched).isValid());
    QCOMPARE(untouched.code, 0);

    for (const char *text : {"// only\n/* comments */", "{\"a\": \"b\nc\"}", "[\"\\\\\" /* c */]", "1, 2"}) {
        LWJSONError error;
        QVERIFY2(!JSONComments::JSONObjectWithCommentedString(text, 0, &error).isValid(), text);
        QCOMPARE(error.code, 3840);
    }
    QCOMPARE(JSONComments::JSONObjectWithCommentedString("\"x\" // a scalar"), QVariant("x"));
    QCOMPARE(JSONComments::JSONObjectWithCommentedString(" 42 ").toInt(), 42);
    const QVariant null = JSONComments::JSONObjectWithCommentedString("null");
    QVERIFY(null.isValid() && null.isNull());
}

void TestJSONComments::followsTheStandardGrammar_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("numbers") << QByteArray("[0, -0.5e+10, 1E3, 2.25, -7]") << true;
    QTest::newRow("escapes") << QByteArray(R"(["\"\\\/\b\f\n\r\t\u00E9\ud83d\ude00"])") << true;
    QTest::newRow("UTF-8 text") << QByteArray("{\"k\": \"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\"}") << true;
    QTest::newRow("nested") << QByteArray(R"({"a": [[], {}, {"b": [true, false, null]}]})") << true;
    QTest::newRow("point without fraction") << QByteArray("[2.]") << false;
    QTest::newRow("point without integer") << QByteArray("[.2e-3]") << false;
    QTest::newRow("negative without fraction") << QByteArray("-2.") << false;
    QTest::newRow("leading zero") << QByteArray("[01]") << false;
    QTest::newRow("empty exponent") << QByteArray("[1e+]") << false;
    QTest::newRow("plus sign") << QByteArray("+1") << false;
    QTest::newRow("hex escape") << QByteArray(R"(["\x41"])") << false;
    QTest::newRow("short unicode escape") << QByteArray(R"(["\u12"])") << false;
    QTest::newRow("byte after backslash") << QByteArray("[\"\\\xff\"]") << false;
    QTest::newRow("invalid UTF-8 after an escape") << QByteArray("[\"\\n\xff\"]") << false;
    QTest::newRow("overlong UTF-8") << QByteArray("[\"\xc0\xaf\"]") << false;
    QTest::newRow("encoded surrogate") << QByteArray("[\"\xed\xa0\x80\"]") << false;
    QTest::newRow("cut UTF-8") << QByteArray("[\"\xe2\x82\"]") << false;
    QTest::newRow("tab in a string") << QByteArray("[\"a\tb\"]") << false;
    QTest::newRow("trailing comma") << QByteArray("[1,]") << false;
    QTest::newRow("member without value") << QByteArray(R"({"a":})") << false;
    QTest::newRow("bare word") << QByteArray("[tru]") << false;
}

void TestJSONComments::followsTheStandardGrammar()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, valid);
    LWJSONError error;
    const QVariant value = JSONComments::JSONObjectWithCommentedData(text, 0, &error);
    QCOMPARE(value.isValid(), valid);
    QCOMPARE(error.code, valid ? 0 : 3840);
}

void TestJSONComments::survivesDeepNesting()
{
    LWJSONError error;
    const QByteArray unclosed(1 << 20, '[');
    QVERIFY(!JSONComments::JSONObjectWithCommentedData(unclosed, 0, &error).isValid());
    QCOMPARE(error.code, 3840);
    const QByteArray closed = QByteArray(200, '[') + QByteArray(200, ']');
    QVERIFY(JSONComments::JSONObjectWithCommentedData(closed).isValid());
}

void TestJSONComments::readsFilesAndURLs()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("info.json");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{ /* name */ \"name\": \"Clock\" }");
    file.close();

    const QVariant expected = QVariantMap{{"name", "Clock"}};
    QCOMPARE(JSONComments::JSONObjectWithCommentedContentsOfFile(path), expected);
    QCOMPARE(JSONComments::JSONObjectWithCommentedContentsOfURL(QUrl::fromLocalFile(path)), expected);

    LWJSONError missing;
    QVERIFY(!JSONComments::JSONObjectWithCommentedContentsOfFile(folder.filePath("none"), 0, &missing).isValid());
    QCOMPARE(missing.code, 260);
    LWJSONError folderRead;
    QVERIFY(!JSONComments::JSONObjectWithCommentedContentsOfFile(folder.path(), 0, &folderRead).isValid());
    QCOMPARE(folderRead.code, 256);
    LWJSONError remote;
    QVERIFY(!JSONComments::JSONObjectWithCommentedContentsOfURL(QUrl("http://host/a.json"), 0, &remote).isValid());
    QCOMPARE(remote.code, 262);
}

void TestJSONComments::writesSortedKeys()
{
    const QVariantHash object{{"b", 1}, {"a", QVariantList{true, "x"}}, {"c", QVariantHash{{"z", 0}, {"y", 1}}}};
    const QString written = JSONComments::stringWithJSONObject(object);
    QCOMPARE(written, QStringLiteral("{\"a\":[true,\"x\"],\"b\":1,\"c\":{\"y\":1,\"z\":0}}"));
    QCOMPARE(JSONComments::JSONObjectWithCommentedString(written).toMap().value("c").toMap().value("y"), QVariant(1));

    LWJSONError error;
    QVERIFY(JSONComments::stringWithJSONObject(QVariant(5), QJsonDocument::Compact, &error).isNull());
    QCOMPARE(error.code, 3840);
}

QTEST_GUILESS_MAIN(TestJSONComments)
#include "tst_jsoncomments.moc"
