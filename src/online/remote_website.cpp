#include "online/remote_website.h"

#include "core/database.h"

namespace qv {

std::vector<std::string> load_remote_website(Database& init, std::string_view custid)
{
    std::vector<std::string> names;
    auto row = init.query("select fn from acct_remote_website where custid=? order by pos", custid);
    while (row.step())
        names.push_back(row.text(0));
    return names;
}

void save_remote_website(Database& init, std::string_view custid, const std::vector<std::string>& names)
{
    Transaction transaction(init);
    delete_remote_website(init, custid);
    std::int64_t pos = 0;
    for (const auto& name : names)
        init.run("insert into acct_remote_website (custid, pos, fn) values (?, ?, ?)", custid, ++pos, name);
    transaction.commit();
}

void delete_remote_website(Database& init, std::string_view custid)
{
    init.run("delete from acct_remote_website where custid=?", custid);
}

} // namespace qv
