#include "remote/CurlSession.h"

#include <QFile>

#include <curl/curl.h>

#include <mutex>

namespace {

CURL *curl(void *handle)
{
    return static_cast<CURL *>(handle);
}

size_t collect(char *data, size_t size, size_t count, void *target)
{
    static_cast<QByteArray *>(target)->append(data, qsizetype(size * count));
    return size * count;
}

size_t readFile(char *data, size_t size, size_t count, void *source)
{
    return size_t(qMax<qint64>(0, static_cast<QFile *>(source)->read(data, qint64(size * count))));
}

struct UploadProgress
{
    const CurlSession::Progress *report;
    qint64 reported = 0;
};

int reportUpload(void *state, curl_off_t, curl_off_t, curl_off_t total, curl_off_t sent)
{
    auto *progress = static_cast<UploadProgress *>(state);
    if (sent > progress->reported && *progress->report)
        (*progress->report)(sent - progress->reported, sent, total);
    progress->reported = sent;
    return 0;
}

}

CurlSession::CurlSession(const RemoteSettings &settings) : settings(settings)
{
    static std::once_flag initialised;
    std::call_once(initialised, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    handle = curl_easy_init();
}

CurlSession::~CurlSession()
{
    curl_easy_cleanup(curl(handle));
}

void CurlSession::prepare(const QString &address)
{
    CURL *request = curl(handle);
    curl_easy_reset(request);
    body.clear();
    errorText[0] = '\0';
    curl_easy_setopt(request, CURLOPT_URL, address.toUtf8().constData());
    curl_easy_setopt(request, CURLOPT_ERRORBUFFER, errorText);
    curl_easy_setopt(request, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(request, CURLOPT_CONNECTTIMEOUT, 15L);
    curl_easy_setopt(request, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(request, CURLOPT_LOW_SPEED_TIME, 30L);
    curl_easy_setopt(request, CURLOPT_USERNAME, settings.username.toUtf8().constData());
    curl_easy_setopt(request, CURLOPT_WRITEFUNCTION, collect);
    curl_easy_setopt(request, CURLOPT_WRITEDATA, &body);
    const bool keyLogin = settings.type == QLatin1String("sftp") && !settings.privateKey.isEmpty();
    if (keyLogin) {
        curl_easy_setopt(request, CURLOPT_SSH_AUTH_TYPES, long(CURLSSH_AUTH_PUBLICKEY));
        curl_easy_setopt(request, CURLOPT_SSH_PRIVATE_KEYFILE, settings.privateKey.toUtf8().constData());
        const QString publicKey = settings.privateKey + QStringLiteral(".pub");
        if (QFile::exists(publicKey))
            curl_easy_setopt(request, CURLOPT_SSH_PUBLIC_KEYFILE, publicKey.toUtf8().constData());
        curl_easy_setopt(request, CURLOPT_KEYPASSWD, settings.password.toUtf8().constData());
    } else {
        curl_easy_setopt(request, CURLOPT_PASSWORD, settings.password.toUtf8().constData());
    }
    if (settings.type == QLatin1String("sftp") && !settings.knownHosts.isEmpty())
        curl_easy_setopt(request, CURLOPT_SSH_KNOWNHOSTS, settings.knownHosts.toUtf8().constData());
    if (settings.usesTls()) {
        curl_easy_setopt(request, CURLOPT_USE_SSL, long(CURLUSESSL_ALL));
        if (!settings.certificate.isEmpty())
            curl_easy_setopt(request, CURLOPT_CAINFO, settings.certificate.toUtf8().constData());
    }
}

CurlSession::Result CurlSession::perform()
{
    const CURLcode code = curl_easy_perform(curl(handle));
    Result result;
    result.ok = code == CURLE_OK;
    result.loginRefused = code == CURLE_LOGIN_DENIED;
    if (!result.ok)
        result.error = QString::fromUtf8(errorText[0] ? errorText : curl_easy_strerror(code));
    result.body = QString::fromUtf8(body);
    return result;
}

CurlSession::Result CurlSession::list(const QString &serverPath)
{
    prepare(settings.curlAddress(serverPath, true));
    return perform();
}

CurlSession::Result CurlSession::upload(const QString &localPath, const QString &serverPath, const Progress &progress)
{
    QFile file(localPath);
    if (!file.open(QIODevice::ReadOnly))
        return {false, false, file.errorString(), QString()};
    prepare(settings.curlAddress(serverPath, false));
    UploadProgress state{&progress};
    CURL *request = curl(handle);
    curl_easy_setopt(request, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(request, CURLOPT_READFUNCTION, readFile);
    curl_easy_setopt(request, CURLOPT_READDATA, &file);
    curl_easy_setopt(request, CURLOPT_INFILESIZE_LARGE, curl_off_t(file.size()));
    curl_easy_setopt(request, CURLOPT_FTP_CREATE_MISSING_DIRS, long(CURLFTP_CREATE_DIR_RETRY));
    curl_easy_setopt(request, CURLOPT_XFERINFOFUNCTION, reportUpload);
    curl_easy_setopt(request, CURLOPT_XFERINFODATA, &state);
    curl_easy_setopt(request, CURLOPT_NOPROGRESS, 0L);
    return perform();
}
