#include "drawengine/match_notes.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"

namespace qv {

std::optional<MatchNotes> read_match_notes(Session& session, std::int64_t sid)
{
    auto row = session.tournament().query("select p1, p2, p3, p4, p1_matchnote, p2_matchnote, p3_matchnote, "
                                          "p4_matchnote, mg_matchnote from schedule where sid=?",
        sid);
    if (!row.step()) {
        session.talk().message(std::to_string(sid) + " not found,stale data");
        return std::nullopt;
    }
    MatchNotes notes;
    notes.sid = sid;
    for (int k = 0; k < 4; ++k) {
        notes.players[static_cast<std::size_t>(k)] = row.text(k);
        notes.notes[static_cast<std::size_t>(k)] = row.text(k + 4);
    }
    notes.general = row.text(8);
    return notes;
}

void save_match_notes(Session& session, const MatchNotes& notes)
{
    auto& db = session.tournament();
    Transaction transaction(db);
    db.run("update schedule set p1_matchnote=?, p2_matchnote=?, p3_matchnote=?, p4_matchnote=?, mg_matchnote=? "
           "where sid=?",
        trim(notes.notes[0]), trim(notes.notes[1]), trim(notes.notes[2]), trim(notes.notes[3]), trim(notes.general),
        notes.sid);
    transaction.commit();
}

} // namespace qv
