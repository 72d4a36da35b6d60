#include "store.h"

#include "core/time_rules.h"

namespace qv::service {

namespace {

constexpr std::string_view schema = R"(
create table if not exists accounts (
    custid text not null primary key collate nocase,
    password text not null default '',
    email text not null default '',
    signupdate text not null default '',
    maxevents integer not null default 0,
    maxentries integer not null default 0
);
create table if not exists tournaments (
    custid text not null primary key collate nocase,
    tournament text not null default '',
    dates text not null default '',
    currencycode text not null default '',
    tdetails text not null default '',
    entryinstructions text not null default '',
    paymentinstructions text not null default '',
    messagetoplayers text not null default '',
    conditions text not null default '',
    maxevents integer not null default 0,
    scnti integer not null default 0,
    dcnti integer not null default 0,
    xcnti integer not null default 0,
    xdcnti integer not null default 0,
    ccemails text not null default '',
    dosend integer not null default 0,
    entries_open integer not null default 0,
    withdrawals_open integer not null default 0,
    events_text text not null default ''
);
create table if not exists events (
    custid text not null collate nocase,
    eid integer not null,
    eventname text not null default '',
    sex text not null default '',
    pte text not null default '',
    fee text not null default '',
    singdobs text not null default ''
);
create table if not exists players (
    custid text not null collate nocase,
    pid integer not null,
    timestamp text not null default '',
    fname text not null default '',
    sname text not null default '',
    email text not null default '',
    password text not null default '',
    dob text not null default '',
    sex text not null default '',
    address1 text not null default '',
    address2 text not null default '',
    city text not null default '',
    state text not null default '',
    postcode text not null default '',
    country text not null default '',
    phone text not null default '',
    mobile text not null default '',
    rating text not null default '',
    ranking text not null default '',
    results text not null default '',
    club text not null default '',
    availabilityrestrictions text not null default '',
    tsd text not null default '',
    message text not null default '',
    pval text not null default '1'
);
create table if not exists entries (
    custid text not null collate nocase,
    pid integer not null,
    eid integer not null,
    partnerfname text not null default '',
    partnersname text not null default '',
    p2sex text not null default ''
);
create table if not exists ftp (
    host text not null default '',
    port text not null default '',
    user text not null default '',
    pass text not null default '',
    url text not null default '',
    allocation integer not null default 0
);
create table if not exists feedback (
    custid text not null collate nocase,
    feedback_type text not null default '',
    feedback_text text not null default '',
    received text not null default ''
);
create table if not exists ftp_errors (
    custid text not null collate nocase,
    ftpserver text not null default '',
    ftpusername text not null default '',
    timeout text not null default '',
    received text not null default ''
);
create index if not exists events_custid on events (custid, eid);
create index if not exists players_custid on players (custid, pid);
create index if not exists entries_custid on entries (custid, pid, eid);
)";

} // namespace

Store::Store(const std::filesystem::path& file)
    : m_db(Database::create_empty(file))
{
    // One process owns the file; a write-ahead log spares each request a wait for the disk.
    m_db.exec_script("pragma journal_mode=wal; pragma synchronous=normal;");
    m_db.exec_script(schema);
}

void Store::add_account(const Account& account)
{
    if (this->account(account.custid)) {
        m_db.run("update accounts set password=?, maxevents=?, maxentries=? where custid=?", account.password,
            account.maxevents, account.maxentries, account.custid);
    } else {
        m_db.run("insert into accounts (custid, password, signupdate, maxevents, maxentries) values (?, ?, ?, ?, ?)",
            account.custid, account.password, service_date(), account.maxevents, account.maxentries);
    }
    ensure_tournament(account.custid);
}

std::optional<Account> Store::account(std::string_view custid)
{
    auto row = m_db.query("select * from accounts where custid=?", custid);
    if (!row.step())
        return std::nullopt;
    return Account { row.text("custid"), row.text("password"), row.integer("maxevents"), row.integer("maxentries") };
}

void Store::set_ftp(const FtpConfig& ftp)
{
    Transaction transaction(m_db);
    m_db.run("delete from ftp");
    m_db.run("insert into ftp (host, port, user, pass, url, allocation) values (?, ?, ?, ?, ?, ?)", ftp.host, ftp.port,
        ftp.user, ftp.pass, ftp.url, ftp.allocation);
    transaction.commit();
}

std::optional<FtpConfig> Store::ftp()
{
    auto row = m_db.query("select * from ftp");
    if (!row.step())
        return std::nullopt;
    return FtpConfig { row.text("host"), row.text("port"), row.text("user"), row.text("pass"), row.text("url"),
        row.integer("allocation") };
}

void Store::ensure_tournament(std::string_view custid)
{
    if (m_db.scalar_integer("select count(*) from tournaments where custid=?", custid) == 0)
        m_db.run("insert into tournaments (custid) values (?)", custid);
}

OnlineStates Store::states(std::string_view custid)
{
    auto row = m_db.query("select entries_open, withdrawals_open from tournaments where custid=?", custid);
    if (!row.step())
        return {};
    return { row.integer("entries_open") != 0, row.integer("withdrawals_open") != 0 };
}

std::string service_date()
{
    return date_time_long(local_time_now()).substr(0, 11);
}

} // namespace qv::service
