#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <vector>

// Checks that bytes are exactly one JSON text as the standard grammar defines
// it (RFC 8259): numbers with digits on both sides of a decimal point and in
// an exponent, no leading zeros, only the escapes \" \\ \/ \b \f \n \r \t and
// \uXXXX, no raw control characters in strings, and well-formed UTF-8
// throughout. QJsonDocument is lenient on several of these, so the reader
// runs this check first. Nesting is tracked on a heap stack, so any depth is
// checked without deep recursion.
class JSONSyntaxCheck
{
public:
    struct Fault
    {
        qsizetype offset; // of the first byte that breaks the grammar
        QString description;
    };

    // Nothing when the text is valid JSON, else where and why it is not.
    static std::optional<Fault> firstFault(QByteArrayView text);

private:
    explicit JSONSyntaxCheck(QByteArrayView text) : text(text) {}

    bool checkText();
    bool startValue();
    bool afterValue();
    bool memberName();
    bool string();
    bool escape();
    bool number();
    bool digits();
    bool literal(QByteArrayView word);
    bool utf8Unit();

    void skipWhitespace();
    bool atEnd() const { return position >= text.size(); }
    uchar peek() const { return atEnd() ? 0 : uchar(text[position]); }
    bool consume(char c);
    bool fail(const QString &description);

    QByteArrayView text;
    qsizetype position = 0;
    std::vector<char> openContainers; // '[' or '{', innermost last
    bool expectingValue = true;
    std::optional<Fault> fault;
};
