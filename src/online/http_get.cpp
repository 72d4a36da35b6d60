#include "online/http_get.h"

#include "online/request_url.h"

#include <curl/curl.h>
#include <memory>

namespace qv {

namespace {

struct Transfer
{
    const std::function<bool(std::string_view)>* sink;
    const HttpGetOptions* options;
    std::size_t total = 0;
    bool refused = false;
};

std::size_t on_data(char* data, std::size_t size, std::size_t count, void* user)
{
    auto& transfer = *static_cast<Transfer*>(user);
    const std::size_t n = size * count;
    if (!(*transfer.sink)(std::string_view(data, n))) {
        transfer.refused = true;
        return 0;
    }
    transfer.total += n;
    if (transfer.options->on_chunk)
        transfer.options->on_chunk(transfer.total);
    return n;
}

struct CurlDeleter
{
    void operator()(CURL* curl) const { curl_easy_cleanup(curl); }
};
struct ListDeleter
{
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

} // namespace

bool http_get(std::string_view url, const std::function<bool(std::string_view)>& sink, const HttpGetOptions& options)
{
    std::unique_ptr<CURL, CurlDeleter> curl(curl_easy_init());
    if (!curl)
        return false;
    // A proxy or cache between here and the service must fetch the reply afresh.
    std::unique_ptr<curl_slist, ListDeleter> headers(curl_slist_append(nullptr, "Cache-Control: no-cache"));
    headers.reset(curl_slist_append(headers.release(), "Pragma: no-cache"));

    const std::string wire = wire_url(url);
    const long timeout = options.timeout_seconds > 0 ? options.timeout_seconds : 30;
    Transfer transfer { &sink, &options };
    CURL* handle = curl.get();
    curl_easy_setopt(handle, CURLOPT_URL, wire.c_str());
    curl_easy_setopt(handle, CURLOPT_HTTPGET, 1L);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "VB OpenUrl");
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, 2048L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, timeout);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, timeout);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, on_data);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &transfer);

    const CURLcode code = curl_easy_perform(handle);
    if (transfer.refused)
        return false;
    return code == CURLE_OK || transfer.total == 0;
}

} // namespace qv
