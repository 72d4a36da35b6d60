#include "online/ftp_connection.h"

#include <cstdio>
#include <curl/curl.h>
#include <memory>

namespace qv {

namespace {

CURL* handle(void* curl)
{
    return static_cast<CURL*>(curl);
}

std::size_t append_text(char* data, std::size_t size, std::size_t count, void* user)
{
    static_cast<std::string*>(user)->append(data, size * count);
    return size * count;
}

std::size_t discard(char*, std::size_t size, std::size_t count, void*)
{
    return size * count;
}

int on_progress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    const auto* breathe = static_cast<const std::function<void()>*>(user);
    if (*breathe)
        (*breathe)();
    return 0;
}

// Every path segment escaped, the "/" between them kept.
std::string escaped_path(CURL* curl, std::string_view path)
{
    std::string out;
    std::size_t start = 0;
    while (true) {
        const auto slash = path.find('/', start);
        const auto segment
            = path.substr(start, slash == std::string_view::npos ? std::string_view::npos : slash - start);
        char* escaped = curl_easy_escape(curl, segment.data(), static_cast<int>(segment.size()));
        out += escaped ? escaped : "";
        curl_free(escaped);
        if (slash == std::string_view::npos)
            return out;
        out += '/';
        start = slash + 1;
    }
}

struct CurlSlist
{
    curl_slist* list = nullptr;
    ~CurlSlist() { curl_slist_free_all(list); }
};

} // namespace

FtpConnection::FtpConnection(std::string_view server, std::string user, std::string password, Options options)
    : m_curl(curl_easy_init())
    , m_base("ftp://" + std::string(server) + "/")
    , m_user(std::move(user))
    , m_password(std::move(password))
    , m_options(std::move(options))
{
}

FtpConnection::~FtpConnection()
{
    close();
}

void FtpConnection::close()
{
    if (m_curl)
        curl_easy_cleanup(handle(m_curl));
    m_curl = nullptr;
}

std::string FtpConnection::url_of(std::string_view path) const
{
    return m_base + escaped_path(handle(m_curl), path);
}

// Each command starts from the same settings; the open connection itself is kept by the handle.
void FtpConnection::reset()
{
    CURL* curl = handle(m_curl);
    curl_easy_reset(curl);
    curl_easy_setopt(curl, CURLOPT_USERNAME, m_user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, m_password.c_str());
    curl_easy_setopt(curl, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
    if (!m_options.ca_file.empty())
        curl_easy_setopt(curl, CURLOPT_CAINFO, m_options.ca_file.c_str());
    curl_easy_setopt(curl, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, static_cast<long>(m_options.response_timeout_seconds));
    curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(m_options.response_timeout_seconds));
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, static_cast<long>(m_options.response_timeout_seconds));
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, discard);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, on_progress);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &m_options.breathe);
}

bool FtpConnection::perform(const std::string& url)
{
    curl_easy_setopt(handle(m_curl), CURLOPT_URL, url.c_str());
    const CURLcode code = curl_easy_perform(handle(m_curl));
    m_error = code == CURLE_OK ? std::string() : curl_easy_strerror(code);
    return code == CURLE_OK;
}

bool FtpConnection::log_in(int connect_seconds)
{
    if (!m_curl)
        return false;
    reset();
    curl_easy_setopt(handle(m_curl), CURLOPT_CONNECTTIMEOUT, static_cast<long>(connect_seconds));
    curl_easy_setopt(handle(m_curl), CURLOPT_NOBODY, 1L);
    return perform(m_base);
}

bool FtpConnection::can_enter(std::string_view dir)
{
    return m_curl && list_names(dir).has_value();
}

bool FtpConnection::make_directory(std::string_view dir)
{
    if (!m_curl)
        return false;
    reset();
    CurlSlist commands;
    commands.list = curl_slist_append(nullptr, ("MKD " + std::string(dir)).c_str());
    curl_easy_setopt(handle(m_curl), CURLOPT_QUOTE, commands.list);
    curl_easy_setopt(handle(m_curl), CURLOPT_NOBODY, 1L);
    return perform(m_base);
}

std::optional<std::vector<std::string>> FtpConnection::list_names(std::string_view dir)
{
    if (!m_curl)
        return std::nullopt;
    reset();
    std::string text;
    curl_easy_setopt(handle(m_curl), CURLOPT_DIRLISTONLY, 1L);
    curl_easy_setopt(handle(m_curl), CURLOPT_WRITEFUNCTION, append_text);
    curl_easy_setopt(handle(m_curl), CURLOPT_WRITEDATA, &text);
    if (!perform(url_of(dir) + "/"))
        return std::nullopt;
    std::vector<std::string> names;
    std::size_t start = 0;
    while (start < text.size()) {
        auto end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string name = text.substr(start, end - start);
        if (!name.empty() && name.back() == '\r')
            name.pop_back();
        // Some hosts answer a listing of a directory with paths through it.
        if (const auto slash = name.rfind('/'); slash != std::string::npos)
            name.erase(0, slash + 1);
        if (!name.empty())
            names.push_back(std::move(name));
        start = end + 1;
    }
    return names;
}

bool FtpConnection::delete_file(std::string_view path)
{
    if (!m_curl)
        return false;
    reset();
    CurlSlist commands;
    commands.list = curl_slist_append(nullptr, ("DELE " + std::string(path)).c_str());
    curl_easy_setopt(handle(m_curl), CURLOPT_QUOTE, commands.list);
    curl_easy_setopt(handle(m_curl), CURLOPT_NOBODY, 1L);
    return perform(m_base);
}

bool FtpConnection::put_file(const std::filesystem::path& local, std::string_view remote_path)
{
    if (!m_curl)
        return false;
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(local.c_str(), "rb"), std::fclose);
    if (!file) {
        m_error = "cannot read " + local.string();
        return false;
    }
    std::error_code error;
    const auto size = std::filesystem::file_size(local, error);
    reset();
    curl_easy_setopt(handle(m_curl), CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(handle(m_curl), CURLOPT_READDATA, file.get());
    if (!error)
        curl_easy_setopt(handle(m_curl), CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(size));
    return perform(url_of(remote_path));
}

} // namespace qv
