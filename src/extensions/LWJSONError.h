#pragma once

#include <QString>

// The error reported by the comment-tolerant JSON reader and writer: a domain,
// a numeric code and a human-readable description.
struct LWJSONError
{
    QString domain;
    int code = 0;
    QString description;
};
