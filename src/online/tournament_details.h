#pragma once

#include "core/validators.h"
#include "online/service_operations.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The tournament's online limits as typed: blank fields count as "0". mixed_as_doubles is xdcnti.
struct MaxEventsInput
{
    std::string maxevents;
    std::string scnti;
    std::string dcnti;
    std::string xcnti;
    bool mixed_as_doubles = false;
};

// The local values of "tournament configuration": the one row of table tournament.
struct TournamentDetails
{
    std::string tournament, dates, currencycode;
    std::string venue, address, country, surface;
    std::string tdetails, tdetails2, entryinstructions, paymentinstructions, messagetoplayers, conditions;
    MaxEventsInput limits;
    std::string ccemails;
    bool dosend = false;
};

TournamentDetails load_tournament(Database& tournament);

// A refusal of a typed value and the field it came from, for the window to return to.
struct FieldRefusal
{
    int field = 0; // the argument's position, from 0
    Refusal refusal;
};

// Page 1, "save locally": name and dates (through the session's cache) and the currency. Name and dates must
// pass systemdisallow; nothing is written on a refusal.
std::optional<FieldRefusal> save_tournament(
    Session& session, std::string_view tournament, std::string_view dates, std::string_view currencycode);
// The second "save locally": venue, address, country and surface, each through systemdisallow.
std::optional<FieldRefusal> save_venue(Session& session, std::string_view venue, std::string_view address,
    std::string_view country, std::string_view surface);
// The list of countries: "country (code)" from ccodes by country name.
std::vector<std::string> country_lines(Database& init);
// "upload": update_tournament with "&", "%" and "#" taken out of the three values.
bool save_tournament_online(
    Session& session, std::string_view tournament, std::string_view dates, std::string_view currencycode);

// The texts for players, each with its column, its page of the service and its caption.
enum class TournamentText { details, entry_instructions, payment_instructions, message_to_players, conditions };
struct TextInfo
{
    std::string_view column;
    std::string_view page;
    std::string_view caption;
};
const TextInfo& text_info(TournamentText which);
const std::vector<TournamentText>& tournament_texts();

// "save locally": the text into its column; the details keep their second page in tdetails2.
void save_text_locally(Session& session, TournamentText which, std::string_view text, std::string_view page2 = {});
// "upload": each line followed by "<br>", a backslash before each quote and backslash, then sent in batches
// under the column's name. A text holding "&", "%" or "#" is refused ("clean text" takes them out): refused
// then names the page (0 or 1) and the character. The details send both pages, joined.
bool upload_text(Session& session, TournamentText which, std::string_view text, std::string_view page2,
    std::optional<FieldRefusal>& refused);
// "view": the address of the text's page, once an account and its server are set.
std::optional<std::string> text_view_url(Session& session, TournamentText which);
// The text as it goes on the wire, before the batches.
std::string prepare_text_upload(std::string_view text);
std::string escape_characters(std::string_view text);

// "add data template" and its capitals form: labelled lines to fill, some with what the tournament holds.
std::string data_template(const TournamentDetails& details, bool caps);
// "add name/dates".
std::string name_dates_lines(std::string_view tournament, std::string_view dates);

// The limits with blank fields as "0", or a refusal for a field that is not a whole number (field 0 to 3).
std::optional<MaxEventLimits> validate_maxevents(const MaxEventsInput& input, std::optional<FieldRefusal>& refused);
std::optional<FieldRefusal> save_max_events(Session& session, const MaxEventsInput& input);
// "upload": setmaxevents, then the account's record of its online limits.
bool save_max_events_online(Session& session, const MaxEventsInput& input, std::optional<FieldRefusal>& refused);
// "refresh": the limits the service holds, recorded for the account; the fields in the reply's order.
std::optional<MaxEventLimits> get_online_maxevents_stuff(Session& session);
MaxEventLimits process_maxevents(std::string_view data);
// The account's last known online limits, without asking the service.
std::optional<MaxEventLimits> stored_online_limits(Database& init, std::string_view custid);

// Recovery e-mails: "save locally", "upload" (refusing "%" and "&" first) and "refresh".
void save_recovery_emails(Session& session, std::string_view ccemails, bool dosend);
bool upload_recovery_emails(Session& session, std::string_view ccemails, bool dosend);
struct RecoveryEmails
{
    std::string ccemails;
    bool dosend = false;
};
std::optional<RecoveryEmails> refesh_remote_state(Session& session);

} // namespace qv
