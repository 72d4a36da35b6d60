#include "documents/draw_fixture.h"
#include "documents/makedrawpic_new.h"

namespace qv {
namespace {

// The analysis windows draw the draws of a results file from its single store, as the tournament's own.
class PictureStoreTest : public test::DrawFixture
{
protected:
    // The event and its rows as a results file brings them into the store.
    void copy_to_store(std::int64_t eid)
    {
        auto& peek = session.peek_browse_db();
        auto event
            = db().query("select eventname, drawtype, drawsize, pts, timestamp_text from events where eid=?", eid);
        ASSERT_TRUE(event.step());
        peek.run(R"(insert into qv4_single_events (eid, eventname, drawtype, drawsize, pts, timestamp_text, tn, dts)
            values (?, ?, ?, ?, ?, ?, 'last year''s open', '2026'))",
            eid, event.text("eventname"), event.text("drawtype"), event.integer("drawsize"), event.integer("pts"),
            event.text("timestamp_text"));
        const std::string columns = R"(sid, eid, "match", rid, rname, mt, mb, mw_ptr, mtttt, mtfrn, mttag, mbttt,
            mbfrn, mbtag, mwttt, mwtag, matchscore, matchlongscore, points1, points2, mt_country, mb_country,
            mtseeding, mbseeding, ds, drawtype, eventname, scheduledate, cid, matchnumber, matchtime, nbat)";
        auto rows = db().query("select " + columns + " from schedule where eid=?", eid);
        std::string marks = "?";
        for (int i = 1; i < rows.column_count(); ++i)
            marks += ",?";
        auto add = peek.query("insert into qv4_single_schedule (" + columns + ") values (" + marks + ")");
        while (rows.step()) {
            add.reset();
            for (int i = 0; i < rows.column_count(); ++i)
                add.bind(i + 1, rows.text(i));
            add.step();
        }
    }

    static std::vector<std::string> texts(const PictureLayout& layout)
    {
        std::vector<std::string> out;
        for (const auto& cell : layout.cells())
            if (cell.name != "display_tname" && cell.name != "tnamedates")
                out.push_back(cell.name + std::to_string(cell.index) + "=" + cell.text);
        return out;
    }
};

TEST_F(PictureStoreTest, ResultsFileDrawsLikeTheTournament)
{
    ko_draw(1, "boys 8", 8, 7, 2);
    rr_draw(2, "group a", 4, 3, 2);
    PictureOptions options;
    for (std::int64_t eid : { 1, 2 }) {
        copy_to_store(eid);
        const auto own = makepic1(session, DrawStore::tournament, eid, options);
        const auto stored = makepic1(session, DrawStore::qv4_single, eid, options);
        ASSERT_EQ(stored.size(), 1u) << eid;
        EXPECT_EQ(stored[0].file_name, own[0].file_name);
        EXPECT_EQ(texts(stored[0].layout), texts(own[0].layout)) << eid;
        EXPECT_EQ(stored[0].layout.find("display_tname")->text, "last year's open");
        EXPECT_EQ(stored[0].layout.find("tnamedates")->text, "2026");
    }
    EXPECT_TRUE(makepic1(session, DrawStore::qv4_single, 3, options).empty());
}

} // namespace
} // namespace qv
