#include "datafiles/tods_participants.h"

#include "core/database.h"
#include "core/text_rules.h"
#include "core/utf8.h"

namespace qv {

namespace {

std::string key_of(const std::string& name)
{
    return lcase(trim(name));
}

std::string tods_sex(const std::string& sex)
{
    const auto word = key_of(sex);
    if (word == "male" || word == "m")
        return "MALE";
    if (word == "female" || word == "f")
        return "FEMALE";
    return {};
}

// Last word the family name, the rest the given names: how a name met only in a draw is split.
std::pair<std::string, std::string> split_name(const std::string& name)
{
    const auto text = trim(name);
    const auto cut = text.rfind(' ');
    if (cut == std::string::npos)
        return { "", text };
    return { trim(text.substr(0, cut)), text.substr(cut + 1) };
}

} // namespace

void TodsParticipants::load(Database& tournament)
{
    for (auto q = tournament.query("select pid, player, fname, sname, sex, country, pval from players order by pid");
         q.step();)
        add_person(q.text("player"), std::to_string(q.integer("pid")),
            { q.text("fname"), q.text("sname"), q.text("sex"), q.text("country") }, q.integer("pval") == 0);
    for (auto q = tournament.query(R"(select player, p1name, partner from evententries
             where sd='doubles' and p1name<>'' and partner<>'' order by ent_idx)");
         q.step();)
        if (!m_ids.contains(key_of(q.text("player"))))
            add_pair(q.text("player"), q.text("p1name"), q.text("partner"));
}

std::string TodsParticipants::id_of(const std::string& name)
{
    const auto key = key_of(name);
    if (key.empty() || is_reserved(key))
        return {};
    if (const auto found = m_ids.find(key); found != m_ids.end())
        return found->second;
    if (const auto slash = name.find('/'); slash != std::string::npos) {
        const auto first = trim(name.substr(0, slash));
        const auto second = trim(name.substr(slash + 1));
        if (!first.empty() && !second.empty())
            return add_pair(name, first, second);
    }
    return person_of(name);
}

std::string TodsParticipants::add_person(
    const std::string& name, const std::string& id_key, const Person& person, bool team)
{
    const auto key = key_of(name);
    if (key.empty() || m_ids.contains(key))
        return key.empty() ? std::string() : m_ids[key];
    const auto id = "P-" + id_key;
    nlohmann::ordered_json participant { { "participantId", id }, { "participantType", team ? "TEAM" : "INDIVIDUAL" },
        { "participantRole", "COMPETITOR" }, { "participantName", trim(name) } };
    if (team) {
        participant["individualParticipantIds"] = nlohmann::ordered_json::array();
    } else {
        nlohmann::ordered_json tods_person { { "personId", "person-" + id_key },
            { "standardGivenName", trim(person.given) }, { "standardFamilyName", trim(person.family) } };
        if (const auto sex = tods_sex(person.sex); !sex.empty())
            tods_person["sex"] = sex;
        // The register's country is the code shown in draws; the standard wants three letters there.
        if (const auto code = trim(person.country); code.size() == 3)
            tods_person["nationalityCode"] = ucase(code);
        participant["person"] = tods_person;
    }
    m_all.push_back(participant);
    m_ids[key] = id;
    return id;
}

std::string TodsParticipants::person_of(const std::string& name)
{
    if (const auto found = m_ids.find(key_of(name)); found != m_ids.end())
        return found->second;
    const auto [given, family] = split_name(name);
    return add_person(name, "n" + std::to_string(++m_unregistered), { given, family, "", "" }, false);
}

std::string TodsParticipants::add_pair(const std::string& name, const std::string& first, const std::string& second)
{
    const auto one = person_of(first);
    const auto two = person_of(second);
    const auto id = "PAIR-" + one.substr(2) + "-" + two.substr(2);
    m_all.push_back({ { "participantId", id }, { "participantType", "PAIR" }, { "participantRole", "COMPETITOR" },
        { "participantName", trim(name) }, { "individualParticipantIds", { one, two } } });
    m_ids[key_of(name)] = id;
    return id;
}

} // namespace qv
