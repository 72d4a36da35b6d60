#include "online/tournament_details.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "online/accounts.h"

#include <array>

namespace qv {

namespace {

// Shows the refusal and names its field.
std::optional<FieldRefusal> refuse(Session& session, int field, const Check& check)
{
    if (!check)
        return std::nullopt;
    session.talk().message(check->message);
    return FieldRefusal { field, *check };
}

// Lines as a text file holds them: a final line break ends the last line and starts no new one.
std::vector<std::string> text_lines(std::string_view text)
{
    std::vector<std::string> lines;
    std::string line;
    for (char c : text) {
        if (c == '\r')
            continue;
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
        } else {
            line += c;
        }
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

// "&", "%" and "#" would end or garble a value in a request.
Check check_request_text(std::string_view text)
{
    const std::u32string chars = decode_utf8(text);
    for (std::size_t i = 0; i < chars.size(); ++i)
        if (chars[i] == U'&' || chars[i] == U'%' || chars[i] == U'#')
            return Refusal { "illegal character", static_cast<int>(i) };
    return std::nullopt;
}

std::optional<OnlineAccount> default_account_checked(Session& session)
{
    if (!havecustidpwd(session))
        return std::nullopt;
    return default_account(session);
}

void record_online_limits(Session& session, const MaxEventLimits& limits)
{
    auto& init = session.init_db();
    const std::string custid = session.settings().text("app.custid");
    Transaction transaction(init);
    ensure_online_tournament_row(init, custid);
    init.run("update acct_online_tournament set maxevents=?, scnti=?, dcnti=?, xcnti=?, xdcnti=? where custid=?",
        limits.maxevents, limits.scnti, limits.dcnti, limits.xcnti, limits.xdcnti, custid);
    transaction.commit();
}

} // namespace

TournamentDetails load_tournament(Database& tournament)
{
    TournamentDetails d;
    auto row = tournament.query("Select * from tournament where idx=1");
    if (!row.step())
        return d;
    d.tournament = row.text("tournament");
    d.dates = row.text("dates");
    d.currencycode = row.text("currencycode");
    d.venue = row.text("venue");
    d.address = row.text("address");
    d.country = row.text("country");
    d.surface = row.text("surface");
    d.tdetails = row.text("tdetails");
    d.tdetails2 = row.text("tdetails2");
    d.entryinstructions = row.text("entryinstructions");
    d.paymentinstructions = row.text("paymentinstructions");
    d.messagetoplayers = row.text("messagetoplayers");
    d.conditions = row.text("conditions");
    d.limits = { row.text("maxevents"), row.text("scnti"), row.text("dcnti"), row.text("xcnti"),
        row.integer("xdcnti") != 0 };
    d.ccemails = row.text("ccemails");
    d.dosend = row.integer("dosend") != 0;
    return d;
}

std::optional<FieldRefusal> save_tournament(
    Session& session, std::string_view tournament, std::string_view dates, std::string_view currencycode)
{
    if (auto refused = refuse(session, 0, check_class(tournament, ValueClass::systemdisallow)))
        return refused;
    if (auto refused = refuse(session, 1, check_class(dates, ValueClass::systemdisallow)))
        return refused;
    auto& db = session.tournament();
    Transaction transaction(db);
    session.settings().set_tournament_cache(db, "itname", tournament);
    session.settings().set_tournament_cache(db, "itdates", dates);
    db.run("update tournament set currencycode=? where idx=1", currencycode);
    transaction.commit();
    session.talk().message("ok");
    return std::nullopt;
}

std::optional<FieldRefusal> save_venue(Session& session, std::string_view venue, std::string_view address,
    std::string_view country, std::string_view surface)
{
    const std::array<std::string_view, 4> values { venue, address, country, surface };
    for (std::size_t i = 0; i < values.size(); ++i)
        if (auto refused = refuse(session, static_cast<int>(i), check_class(values[i], ValueClass::systemdisallow)))
            return refused;
    session.tournament().run(
        "update tournament set venue=?, address=?, country=?, surface=? where idx=1", venue, address, country, surface);
    session.talk().message("ok");
    return std::nullopt;
}

std::vector<std::string> country_lines(Database& init)
{
    std::vector<std::string> lines;
    auto row = init.query("Select * from ccodes order by country");
    while (row.step())
        lines.push_back(row.text("country") + " (" + row.text("code") + ")");
    return lines;
}

bool save_tournament_online(
    Session& session, std::string_view tournament, std::string_view dates, std::string_view currencycode)
{
    const auto account = default_account_checked(session);
    if (!account)
        return false;
    ServiceClient client(session, *account);
    if (!update_tournament(client, remove_chars(tournament), remove_chars(dates), remove_chars(currencycode)))
        return false;
    session.talk().message("ok");
    return true;
}

const std::vector<TournamentText>& tournament_texts()
{
    static const std::vector<TournamentText> texts { TournamentText::details, TournamentText::entry_instructions,
        TournamentText::payment_instructions, TournamentText::message_to_players, TournamentText::conditions };
    return texts;
}

const TextInfo& text_info(TournamentText which)
{
    static const std::array<TextInfo, 5> infos { {
        { "tdetails", "get_tdetails", "tournament details" },
        { "entryinstructions", "get_entryinstructions", "entry instructions" },
        { "paymentinstructions", "get_paymentinstructions", "payment instructions" },
        { "messagetoplayers", "get_messagetoplayers", "message to players" },
        { "conditions", "get_conditions", "conditions of entry" },
    } };
    return infos[static_cast<std::size_t>(which)];
}

void save_text_locally(Session& session, TournamentText which, std::string_view text, std::string_view page2)
{
    auto& db = session.tournament();
    const std::string column(text_info(which).column);
    Transaction transaction(db);
    db.run("update tournament set " + column + "=? where idx=1", text);
    if (which == TournamentText::details)
        db.run("update tournament set tdetails2=? where idx=1", page2);
    transaction.commit();
    session.talk().message("ok");
}

std::string prepare_text_upload(std::string_view text)
{
    std::string prepared;
    for (const auto& line : text_lines(text))
        prepared += line + "<br>";
    return escape_characters(prepared);
}

std::string escape_characters(std::string_view text)
{
    std::string out;
    for (char c : text) {
        if (c == '\'' || c == '\\' || c == '"')
            out += '\\';
        out += c;
    }
    return out;
}

bool upload_text(Session& session, TournamentText which, std::string_view text, std::string_view page2,
    std::optional<FieldRefusal>& refused)
{
    refused = refuse(session, 0, check_request_text(text));
    if (!refused)
        refused = refuse(session, 1, check_request_text(page2));
    if (refused)
        return false;
    const auto account = default_account_checked(session);
    if (!account)
        return false;
    std::string prepared = prepare_text_upload(text);
    if (which == TournamentText::details)
        prepared += prepare_text_upload(page2);
    ServiceClient client(session, *account);
    if (!update_text_field(client, text_info(which).column, prepared))
        return false;
    session.talk().message("ok");
    return true;
}

std::optional<std::string> text_view_url(Session& session, TournamentText which)
{
    const auto& settings = session.settings();
    if (trim(settings.text("app.custid")).empty()) {
        session.talk().message("no default account set,update in control panel");
        return std::nullopt;
    }
    if (trim(settings.text("app.servlet")).empty()) {
        session.talk().message("no server set for current account");
        return std::nullopt;
    }
    ServiceClient client(session, default_account(session));
    return public_page_url(client, text_info(which).page);
}

std::string data_template(const TournamentDetails& d, bool caps)
{
    const std::array<std::pair<std::string_view, std::string>, 17> lines { {
        { "official website url:", "" },
        { "venue:", d.venue },
        { "venue address:", d.address },
        { "director:", "" },
        { "cheques payable to:", "" },
        { "entries close:", "" },
        { "withdrawal deadline:", "" },
        { "prize money:", "" },
        { "fax:", "" },
        { "phone:", "" },
        { "email:", "" },
        { "surface:", d.surface },
        { "draws posted:", "" },
        { "mobile/cellphone:", "" },
        { "official ball:", "" },
        { "sponsor:", "" },
        { "country:", d.country },
    } };
    std::string text;
    for (const auto& [label, value] : lines)
        text += (caps ? ucase(label) : std::string(label)) + (value.empty() ? "" : " " + value) + "\n";
    return text;
}

std::string name_dates_lines(std::string_view tournament, std::string_view dates)
{
    return "tournament name: " + std::string(tournament) + "\ndates: " + std::string(dates) + "\n";
}

std::optional<MaxEventLimits> validate_maxevents(const MaxEventsInput& input, std::optional<FieldRefusal>& refused)
{
    std::array<std::string, 4> values { trim(input.maxevents), trim(input.scnti), trim(input.dcnti),
        trim(input.xcnti) };
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].empty())
            values[i] = "0";
        if (const auto check = check_integer(values[i])) {
            refused = FieldRefusal { static_cast<int>(i), *check };
            return std::nullopt;
        }
    }
    return MaxEventLimits { values[0], values[1], values[2], values[3], input.mixed_as_doubles ? "1" : "0" };
}

std::optional<FieldRefusal> save_max_events(Session& session, const MaxEventsInput& input)
{
    std::optional<FieldRefusal> refused;
    const auto limits = validate_maxevents(input, refused);
    if (!limits) {
        session.talk().message(refused->refusal.message);
        return refused;
    }
    session.tournament().run("update tournament set maxevents=?, scnti=?, dcnti=?, xcnti=?, xdcnti=? where idx=1",
        limits->maxevents, limits->scnti, limits->dcnti, limits->xcnti, limits->xdcnti);
    session.talk().message("ok");
    return std::nullopt;
}

bool save_max_events_online(Session& session, const MaxEventsInput& input, std::optional<FieldRefusal>& refused)
{
    const auto limits = validate_maxevents(input, refused);
    if (!limits) {
        session.talk().message(refused->refusal.message);
        return false;
    }
    const auto account = default_account_checked(session);
    if (!account)
        return false;
    ServiceClient client(session, *account);
    if (!setmaxevents(client, *limits))
        return false;
    record_online_limits(session, *limits);
    session.talk().message("ok");
    return true;
}

MaxEventLimits process_maxevents(std::string_view data)
{
    std::array<std::string, 5> fields;
    std::size_t field = 0;
    for (char c : data) {
        if (c == '^')
            ++field;
        else if (c != '\r' && c != '\n' && field < fields.size())
            fields[field] += c;
    }
    return { fields[0], fields[1], fields[2], fields[3], fields[4] };
}

std::optional<MaxEventLimits> get_online_maxevents_stuff(Session& session)
{
    const auto account = default_account_checked(session);
    if (!account)
        return std::nullopt;
    ServiceClient client(session, *account);
    const auto data = get_maxevents_config(client);
    if (!data)
        return std::nullopt;
    const MaxEventLimits limits = process_maxevents(*data);
    record_online_limits(session, limits);
    session.talk().message("ok");
    return limits;
}

std::optional<MaxEventLimits> stored_online_limits(Database& init, std::string_view custid)
{
    auto row = init.query("select * from acct_online_tournament where custid=?", custid);
    if (!row.step())
        return std::nullopt;
    return MaxEventLimits { row.text("maxevents"), row.text("scnti"), row.text("dcnti"), row.text("xcnti"),
        row.text("xdcnti") };
}

void save_recovery_emails(Session& session, std::string_view ccemails, bool dosend)
{
    session.tournament().run("update tournament set ccemails=?, dosend=? where idx=1", ccemails, dosend ? 1 : 0);
    session.talk().message("ok");
}

bool upload_recovery_emails(Session& session, std::string_view ccemails, bool dosend)
{
    auto& talk = session.talk();
    if (ccemails.find('%') != std::string_view::npos) {
        talk.message("% Invalid character for email");
        return false;
    }
    if (ccemails.find('&') != std::string_view::npos) {
        talk.message("& Invalid character for email");
        return false;
    }
    if (!report(talk, check_class(ccemails, ValueClass::systemdisallow)))
        return false;
    const auto account = default_account_checked(session);
    if (!account)
        return false;
    ServiceClient client(session, *account);
    if (!ccto_dosend_update(client, ccemails, dosend ? "1" : "0"))
        return false;
    talk.message("ok");
    return true;
}

std::optional<RecoveryEmails> refesh_remote_state(Session& session)
{
    const auto account = default_account_checked(session);
    if (!account)
        return std::nullopt;
    ServiceClient client(session, *account);
    const auto data = ccto_dosend_get(client);
    if (!data)
        return std::nullopt;
    const auto caret = data->find('^');
    RecoveryEmails emails { data->substr(0, caret),
        caret != std::string::npos && trim(std::string_view(*data).substr(caret + 1)) == "1" };
    session.talk().message("ok");
    return emails;
}

} // namespace qv
