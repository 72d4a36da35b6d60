#pragma once

#include "protocol.h"

#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace qv::service {

// The online service: one request target in, one reply out. Requests are served one at a time, so the
// store sees no two operations at once.
class Service
{
public:
    Service(Store& store, Options options);

    // The reply to a request target ("/qv?idx=..."); logged receives the decoded target for the request log.
    Reply handle(std::string_view target, std::string_view remote_addr, std::string* logged = nullptr);

private:
    Reply dispatch(const Query& query, std::string_view remote_addr);

    Store& m_store;
    Options m_options;
    std::map<std::string, Operation, std::less<>> m_operations;
    std::mutex m_mutex;
};

} // namespace qv::service
