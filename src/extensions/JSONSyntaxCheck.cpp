#include "extensions/JSONSyntaxCheck.h"

namespace {

bool isDigit(uchar c)
{
    return c >= '0' && c <= '9';
}

bool isHexDigit(uchar c)
{
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isContinuation(uchar c)
{
    return (c & 0xC0) == 0x80;
}

// The length of the well-formed UTF-8 sequence at the start of bytes, or 0:
// no overlong forms, no surrogates, nothing past U+10FFFF.
qsizetype wellFormedUtf8Length(QByteArrayView bytes)
{
    const auto at = [&bytes](qsizetype i) { return i < bytes.size() ? uchar(bytes[i]) : uchar(0); };
    const uchar lead = at(0);
    qsizetype length = 0;
    uchar low = 0x80, high = 0xBF; // allowed range of the second byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
        high = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    } else {
        return 0;
    }
    if (at(1) < low || at(1) > high)
        return 0;
    for (qsizetype i = 2; i < length; ++i) {
        if (!isContinuation(at(i)))
            return 0;
    }
    return length;
}

}

std::optional<JSONSyntaxCheck::Fault> JSONSyntaxCheck::firstFault(QByteArrayView text)
{
    JSONSyntaxCheck check(text);
    check.checkText();
    return check.fault;
}

bool JSONSyntaxCheck::checkText()
{
    skipWhitespace();
    if (atEnd())
        return fail(QStringLiteral("No value"));
    do {
        if (!(expectingValue ? startValue() : afterValue()))
            return false;
        skipWhitespace();
    } while (expectingValue || !openContainers.empty());
    return atEnd() || fail(QStringLiteral("Garbage at end"));
}

// A scalar is read whole; a container is opened (and closed at once when
// empty), leaving its first element or member to the next step.
bool JSONSyntaxCheck::startValue()
{
    expectingValue = false;
    const uchar c = peek();
    if (c == '[' || c == '{') {
        ++position;
        skipWhitespace();
        if (consume(c == '[' ? ']' : '}'))
            return true;
        openContainers.push_back(char(c));
        expectingValue = true;
        return c == '[' || memberName();
    }
    if (c == '"')
        return string();
    if (c == '-' || isDigit(c))
        return number();
    if (c == 't')
        return literal("true");
    if (c == 'f')
        return literal("false");
    if (c == 'n')
        return literal("null");
    return fail(atEnd() ? QStringLiteral("Unexpected end of text") : QStringLiteral("Invalid value"));
}

bool JSONSyntaxCheck::afterValue()
{
    const char open = openContainers.back();
    if (consume(',')) {
        expectingValue = true;
        skipWhitespace();
        return open == '[' || memberName();
    }
    if (consume(open == '[' ? ']' : '}')) {
        openContainers.pop_back();
        return true;
    }
    return fail(open == '[' ? QStringLiteral("Expected ',' or ']'") : QStringLiteral("Expected ',' or '}'"));
}

bool JSONSyntaxCheck::memberName()
{
    if (peek() != '"')
        return fail(QStringLiteral("Expected a member name"));
    if (!string())
        return false;
    skipWhitespace();
    return consume(':') || fail(QStringLiteral("Expected ':' after a member name"));
}

bool JSONSyntaxCheck::string()
{
    ++position; // the opening quote
    while (!atEnd()) {
        const uchar c = peek();
        if (c == '"') {
            ++position;
            return true;
        }
        if (c < 0x20)
            return fail(QStringLiteral("Unescaped control character in a string"));
        if (c == '\\') {
            if (!escape())
                return false;
        } else if (c >= 0x80) {
            if (!utf8Unit())
                return false;
        } else {
            ++position;
        }
    }
    return fail(QStringLiteral("Unterminated string"));
}

bool JSONSyntaxCheck::escape()
{
    ++position; // the backslash
    const uchar c = peek();
    if (c && QByteArrayView("\"\\/bfnrt").contains(char(c))) {
        ++position;
        return true;
    }
    if (c != 'u')
        return fail(QStringLiteral("Invalid escape sequence"));
    ++position;
    for (int i = 0; i < 4; ++i, ++position) {
        if (!isHexDigit(peek()))
            return fail(QStringLiteral("Invalid \\u escape: four hexadecimal digits expected"));
    }
    return true;
}

// -? (0 | [1-9][0-9]*) (. [0-9]+)? ([eE] [+-]? [0-9]+)?
bool JSONSyntaxCheck::number()
{
    consume('-');
    if (!consume('0') && !digits())
        return false;
    if (consume('.') && !digits())
        return false;
    if (peek() == 'e' || peek() == 'E') {
        ++position;
        if (!consume('+'))
            consume('-');
        if (!digits())
            return false;
    }
    return true;
}

bool JSONSyntaxCheck::digits()
{
    if (!isDigit(peek()))
        return fail(QStringLiteral("Invalid number: a digit expected"));
    while (isDigit(peek()))
        ++position;
    return true;
}

bool JSONSyntaxCheck::literal(QByteArrayView word)
{
    if (!text.sliced(position).startsWith(word))
        return fail(QStringLiteral("Invalid value"));
    position += word.size();
    return true;
}

bool JSONSyntaxCheck::utf8Unit()
{
    const qsizetype length = wellFormedUtf8Length(text.sliced(position));
    if (length == 0)
        return fail(QStringLiteral("Invalid UTF-8 in a string"));
    position += length;
    return true;
}

void JSONSyntaxCheck::skipWhitespace()
{
    while (!atEnd() && (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r'))
        ++position;
}

bool JSONSyntaxCheck::consume(char c)
{
    if (atEnd() || text[position] != c)
        return false;
    ++position;
    return true;
}

bool JSONSyntaxCheck::fail(const QString &description)
{
    fault = Fault{position, description};
    return false;
}
