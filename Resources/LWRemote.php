<?php
// One transfer between a local path and a remote server over FTP, FTP with
// TLS, or SFTP, then exit.
//
//   php LWRemote.php MODE SETTINGS REMOTE_PATH LOCAL_PATH
//
// MODE is "uf" (upload a file), "ud" (create a remote folder), "df" (download
// a file) or "dd" (create a local folder). SETTINGS is a JSON object with "t"
// (type: ftp, ftps, ftpes or sftp), "h" (host), "u" (user name), "port" and
// optionally "key" (private key file for SFTP), "ca" (certificate file to
// trust for TLS) and "knownHosts" (host keys to check for SFTP). The password
// (or the key's passphrase) comes from the environment variable
// LARKWOOD_REMOTE_PASSWORD, never from the command line.
//
// Prints one line, "ok: ..." or "error: <reason>", and exits with 0 on
// success, 1 on a failed transfer and 2 on bad arguments. A download goes to
// a temporary file beside the target, renamed over it only when complete. A
// terminating signal stops the transfer at its next progress report and the
// script exits as for a failed transfer, so no temporary file stays behind.

const TLS_TYPES = ['ftps', 'ftpes'];

function finish(int $status, string $message): void
{
    fwrite($status === 0 ? STDOUT : STDERR, ($status === 0 ? 'ok: ' : 'error: ') . $message . "\n");
    exit($status);
}

function remoteUrl(array $settings, string $remotePath, bool $folder): string
{
    $scheme = in_array($settings['t'], TLS_TYPES, true) ? 'ftp' : $settings['t'];
    $segments = array_map('rawurlencode', array_values(array_filter(explode('/', $remotePath), 'strlen')));
    $url = sprintf('%s://%s:%s/%s', $scheme, $settings['h'], $settings['port'], implode('/', $segments));
    return $folder && $segments ? $url . '/' : $url;
}

$cancelled = false;
if (function_exists('pcntl_async_signals')) {
    pcntl_async_signals(true);
    pcntl_signal(SIGTERM, function () use (&$cancelled) { $cancelled = true; });
}

function openSession(array $settings, string $url)
{
    $curl = curl_init($url);
    $password = (string) getenv('LARKWOOD_REMOTE_PASSWORD');
    curl_setopt_array($curl, [
        CURLOPT_USERNAME => $settings['u'],
        CURLOPT_CONNECTTIMEOUT => 15,
        CURLOPT_LOW_SPEED_LIMIT => 1,
        CURLOPT_LOW_SPEED_TIME => 30,
        CURLOPT_FTP_CREATE_MISSING_DIRS => CURLFTP_CREATE_DIR_RETRY,
        CURLOPT_NOPROGRESS => false,
        CURLOPT_XFERINFOFUNCTION => function () { return $GLOBALS['cancelled'] ? 1 : 0; },
    ]);
    if ($settings['t'] === 'sftp' && !empty($settings['key'])) {
        curl_setopt($curl, CURLOPT_SSH_AUTH_TYPES, CURLSSH_AUTH_PUBLICKEY);
        curl_setopt($curl, CURLOPT_SSH_PRIVATE_KEYFILE, $settings['key']);
        if (is_file($settings['key'] . '.pub'))
            curl_setopt($curl, CURLOPT_SSH_PUBLIC_KEYFILE, $settings['key'] . '.pub');
        curl_setopt($curl, CURLOPT_KEYPASSWD, $password);
    } else {
        curl_setopt($curl, CURLOPT_PASSWORD, $password);
    }
    if ($settings['t'] === 'sftp' && !empty($settings['knownHosts']))
        curl_setopt($curl, CURLOPT_SSH_KNOWNHOSTS, $settings['knownHosts']);
    if (in_array($settings['t'], TLS_TYPES, true)) {
        curl_setopt($curl, CURLOPT_USE_SSL, CURLUSESSL_ALL);
        if (!empty($settings['ca']))
            curl_setopt($curl, CURLOPT_CAINFO, $settings['ca']);
    }
    return $curl;
}

function perform($curl, string $what): void
{
    $done = curl_exec($curl);
    $reason = curl_error($curl);
    curl_close($curl);
    if ($done === false)
        finish(1, $GLOBALS['cancelled'] ? 'cancelled' : ($reason !== '' ? $reason : $what . ' failed'));
}

function uploadFile(array $settings, string $remotePath, string $localPath): void
{
    $file = @fopen($localPath, 'rb');
    if ($file === false)
        finish(1, 'cannot read ' . $localPath);
    $curl = openSession($settings, remoteUrl($settings, $remotePath, false));
    curl_setopt_array($curl, [
        CURLOPT_UPLOAD => true,
        CURLOPT_INFILE => $file,
        CURLOPT_INFILESIZE => filesize($localPath),
    ]);
    perform($curl, 'upload');
    fclose($file);
}

// FTP creates the missing folders on the way to a listing of the folder;
// SFTP needs explicit commands, the leading "*" ignoring "already exists".
function makeRemoteFolder(array $settings, string $remotePath): void
{
    $curl = openSession($settings, remoteUrl($settings, $remotePath, true));
    curl_setopt($curl, CURLOPT_RETURNTRANSFER, true);
    curl_setopt($curl, CURLOPT_DIRLISTONLY, true);
    if ($settings['t'] === 'sftp') {
        $commands = [];
        $prefix = '';
        foreach (array_filter(explode('/', $remotePath), 'strlen') as $segment) {
            $prefix .= '/' . $segment;
            $commands[] = '*mkdir "' . addcslashes($prefix, '"\\') . '"';
        }
        curl_setopt($curl, CURLOPT_QUOTE, $commands);
    }
    perform($curl, 'creating the folder');
}

function downloadFile(array $settings, string $remotePath, string $localPath): void
{
    global $cancelled;
    $folder = dirname($localPath);
    if (!is_dir($folder) && !@mkdir($folder, 0777, true))
        finish(1, 'cannot create ' . $folder);
    $partial = @tempnam($folder, '.' . basename($localPath) . '.part-');
    $file = $partial === false ? false : @fopen($partial, 'wb');
    if ($file === false)
        finish(1, 'cannot write in ' . $folder);
    $curl = openSession($settings, remoteUrl($settings, $remotePath, false));
    curl_setopt($curl, CURLOPT_FILE, $file);
    $done = curl_exec($curl);
    $reason = curl_error($curl);
    curl_close($curl);
    fclose($file);
    if ($done === false || !@rename($partial, $localPath)) {
        @unlink($partial);
        finish(1, $cancelled ? 'cancelled' : ($reason !== '' ? $reason : 'cannot replace ' . $localPath));
    }
    @chmod($localPath, 0666 & ~umask());
}

function makeLocalFolder(string $localPath): void
{
    if (!is_dir($localPath) && !@mkdir($localPath, 0777, true))
        finish(1, 'cannot create ' . $localPath);
}

if ($argc !== 5)
    finish(2, 'usage: LWRemote.php uf|ud|df|dd SETTINGS REMOTE_PATH LOCAL_PATH');
[, $mode, $json, $remotePath, $localPath] = $argv;
$settings = json_decode($json, true);
if (!is_array($settings) || !in_array($settings['t'] ?? '', ['ftp', 'ftps', 'ftpes', 'sftp'], true))
    finish(2, 'unsupported connection settings');
$settings += ['h' => '', 'u' => '', 'port' => ''];

switch ($mode) {
case 'uf':
    uploadFile($settings, $remotePath, $localPath);
    break;
case 'ud':
    makeRemoteFolder($settings, $remotePath);
    break;
case 'df':
    downloadFile($settings, $remotePath, $localPath);
    break;
case 'dd':
    makeLocalFolder($localPath);
    break;
default:
    finish(2, 'unknown mode ' . $mode);
}
finish(0, $mode . ' ' . $remotePath);
