#include "service.h"

#include "core/database.h"

namespace qv::service {

Service::Service(Store& store, Options options)
    : m_store(store)
    , m_options(options)
{
    for (const auto& family : { account_operations(), tournament_operations(), event_operations(), page_operations() })
        for (const auto& operation : family)
            m_operations.emplace(std::string(operation.idx), operation);
}

Reply Service::handle(std::string_view target, std::string_view remote_addr, std::string* logged)
{
    const std::lock_guard lock(m_mutex);
    Query query = parse_target(target);
    if (const auto idx = query.value("idx")) {
        const auto found = m_operations.find(*idx);
        if (found != m_operations.end() && found->second.access == Access::form)
            query = parse_target(target, PlusMeans::blank);
    }
    if (logged)
        *logged = query.text();
    try {
        return dispatch(query, remote_addr);
    } catch (const DbError& error) {
        return protocol_reply("service error");
    }
}

Reply Service::dispatch(const Query& query, std::string_view remote_addr)
{
    const auto idx = query.value("idx");
    if (!idx)
        return missing_key("idx");
    const auto found = m_operations.find(*idx);
    if (found == m_operations.end())
        return protocol_reply("unknown idx");
    const Operation& operation = found->second;

    const auto custid = query.value("custid");
    if (!custid)
        return missing_key("custid");
    const auto account = m_store.account(*custid);
    if (!account)
        return operation.access == Access::account ? protocol_reply("unknown account")
                                                   : page_reply("<html><body>unknown account</body></html>");
    if (operation.access == Access::account) {
        const auto password = query.value("password");
        if (!password)
            return missing_key("password");
        if (*password != account->password)
            return protocol_reply("wrong password");
    }
    m_store.ensure_tournament(account->custid);
    Context context { m_store, query, m_options, account->custid, std::string(remote_addr) };
    return operation.handler(context);
}

} // namespace qv::service
