#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace qv {

class Database;

// The participants of a TODS tournament, found by the name the tournament file uses for them: a player's name,
// or a pair's two names joined by "/". A name met only in a draw becomes a person of that name.
class TodsParticipants
{
public:
    // Every player of the register and every resolved doubles entry.
    void load(Database& tournament);
    // The participant of a name; reserved and empty names have none.
    std::string id_of(const std::string& name);
    const nlohmann::ordered_json& all() const { return m_all; }

private:
    struct Person
    {
        std::string given, family, sex, country;
    };
    std::string add_person(const std::string& name, const std::string& id_key, const Person& person, bool team);
    std::string add_pair(const std::string& name, const std::string& first, const std::string& second);
    std::string person_of(const std::string& name);

    std::map<std::string, std::string> m_ids; // compared name -> participantId
    nlohmann::ordered_json m_all = nlohmann::ordered_json::array();
    int m_unregistered = 0;
};

} // namespace qv
