#pragma once

#include <QProcessEnvironment>
#include <QStringList>
#include <QVariantMap>

#include <functional>

// Class-level process runs with the user's login PATH: finding that PATH at
// start, and running programs through "/usr/bin/env" in an environment made
// only of "PATH" and the entries given.
class LWTerminal
{
public:
    using Handler = std::function<void(const QString &)>;

    // What the login shell prints for the shipped "getpath.sh": the login
    // PATH followed by a line feed.
    static QString getPath();
    // "/usr/bin/env PWD": standard output followed by standard error.
    static QString getPwd();

    // Runs the arguments (the first names the program) and answers standard
    // output followed by standard error; "" when "/usr/bin/env" cannot start.
    static QString exec(const QStringList &args, const QVariantMap &environment = {});

    // The same without waiting: answers "" at once, calls `action` with each
    // decoded chunk of output or error and `completed` with all of it once the
    // program has ended, both on the calling thread.
    static QString exec(const QStringList &args, const QVariantMap &environment, Handler action,
                        Handler completed);
    static QString exec(const QStringList &args, Handler action, Handler completed);

    // Runs the program with the options, the shipped script's full path and
    // the data as arguments.
    static QString compile(const QString &program, const QStringList &options,
                           const QString &script, const QString &data);

    // Interpreter shorthands for compile(). python() runs "php" and the
    // background forms of python and ruby run php(): these mappings are kept
    // as they are on purpose. Background forms call the handler on a pool thread.
    static QString php(const QString &script, const QString &data);
    static QString python(const QString &script, const QString &data);
    static QString ruby(const QString &script, const QString &data);
    static void php(const QString &script, const QString &data, Handler action);
    static void python(const QString &script, const QString &data, Handler action);
    static void ruby(const QString &script, const QString &data, Handler action);

private:
    static QString outputAndError(const QString &program, const QStringList &args,
                                  const QProcessEnvironment *environment = nullptr);
};
