#include "core/sports_vocabulary.h"

#include "core/session.h"

namespace qv {

const std::vector<Sport>& set_up_sport()
{
    static const std::vector<Sport> sports {
        { "tennis", { "court", "c", "courts", "match", "m", "matches" } },
        { "golf", { "tee", "t", "tees", "match", "m", "matches" } },
        { "soccer", { "pitch", "p", "pitchs", "match", "m", "matches" } },
        { "pool", { "table", "t", "tables", "match", "m", "matches" } },
        { "snooker", { "table", "t", "tables", "match", "m", "matches" } },
        { "darts", { "board", "b", "boards", "match", "m", "matches" } },
        { "chess", { "table", "t", "tables", "match", "m", "matches" } },
        { "squash", { "court", "c", "courts", "match", "m", "matches" } },
        { "badminton", { "court", "c", "courts", "match", "m", "matches" } },
    };
    return sports;
}

std::array<std::string, 6> as_array(const SportWords& w)
{
    return { w.court, w.c, w.courts, w.match, w.m, w.matches };
}

SportWords current_sport_words(Session& session)
{
    auto& s = session.settings();
    return { s.text("app.generic_court"), s.text("app.generic_c"), s.text("app.generic_courts"),
        s.text("app.generic_match"), s.text("app.generic_m"), s.text("app.generic_matches") };
}

std::optional<WordRefusal> validate_sport_words(const SportWords& words)
{
    const auto values = as_array(words);
    for (int i = 0; i < 6; ++i) {
        if (auto refusal = value_required(values[i]))
            return WordRefusal { i, *refusal };
        if (auto refusal = check_class(values[i], ValueClass::genericterms))
            return WordRefusal { i, *refusal };
    }
    return std::nullopt;
}

SaveWords save_sport_words(Session& session, const SportWords& words)
{
    if (auto refusal = validate_sport_words(words)) {
        session.talk().message(refusal->refusal.message);
        return SaveWords::refused;
    }
    const bool restart = session.has_tournament();
    if (restart
        && session.talk().ask(
               "Changing these settings requires a restart of quorvelin,continue?", "Confirm", Buttons::YesNo)
            != Answer::Yes)
        return SaveWords::declined;
    const auto values = as_array(words);
    for (int i = 0; i < 6; ++i)
        session.settings().set_disk_var(sport_word_keys[i], values[i]);
    if (!restart) {
        session.set_generics();
        return SaveWords::saved;
    }
    session.boot_restart_from_control_panel();
    return SaveWords::saved_restarting;
}

} // namespace qv
