#include "documents/rr_standings.h"

#include "core/database.h"

#include <cstdio>

namespace qv {

std::string points_text(double points)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", points);
    return text;
}

Document standings_rr(const DocumentContext& context, std::int64_t eid)
{
    auto& db = context.tournament;
    // The scratch tables are written in one go.
    Transaction transaction(db);
    db.run("delete from alist10_rr");
    db.run("delete from alist");
    db.run(R"(insert into alist (nm) select mtttt from schedule where eid=? and mtttt <>''
        union all select mbttt from schedule where eid=? and mbttt <>'')",
        eid, eid);
    db.run("insert into alist10_rr (nm) select distinct(nm) from alist");
    Document document;
    begin_document(document, context, "standings " + db.scalar_text("select eventname from events where eid=?", eid));
    document.add("");
    auto add = db.query("Update alist10_rr set points=points + ? where nm=?");
    for (auto row
         = db.query(R"(Select mtttt, mbttt, points1, points2 from schedule where eid=? order by "match")", eid);
         row.step();) {
        for (auto [name, points] : { std::pair { "mtttt", "points1" }, std::pair { "mbttt", "points2" } }) {
            add.bind_all(row.real(points), row.text(name));
            add.step();
            add.reset();
        }
    }
    transaction.commit();
    for (auto row = db.query("Select nm, points from alist10_rr order by points desc, rowid"); row.step();)
        document.add(row.text("nm") + "(" + points_text(row.real("points")) + ")");
    end_document(document, context);
    return document;
}

} // namespace qv
