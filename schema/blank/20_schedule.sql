-- The match record: one row for every match of every draw, plus each knock-out draw's "winner" row.
create table schedule (
    -- Identity and place in the draw.
    sid integer not null default 0,
    eid integer not null default 0,
    "match" integer not null default 0,
    rid integer not null default 0,
    rname text not null default '' collate nocase,
    rsname text not null default '' collate nocase,
    mt text not null default '' collate nocase,
    mb text not null default '' collate nocase,
    mw_ptr text not null default '' collate nocase,
    ds integer not null default 0,
    maxrounds integer not null default 0,
    drawtype text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    eventname text not null default '' collate nocase,
    evtsex text not null default '' collate nocase,
    pts integer not null default 0,

    -- The sides and the winner in their three name forms.
    mtttt text not null default '' collate nocase,
    mtfrn text not null default '' collate nocase,
    mttag text not null default '' collate nocase,
    mbttt text not null default '' collate nocase,
    mbfrn text not null default '' collate nocase,
    mbtag text not null default '' collate nocase,
    mwttt text not null default '' collate nocase,
    mwfrn text not null default '' collate nocase,
    mwtag text not null default '' collate nocase,

    -- Result and what travels with each side. Seeds are text: numbers, "wc", "q" or empty.
    matchscore text not null default '' collate nocase,
    matchlongscore text not null default '' collate nocase,
    points1 text not null default '' collate nocase,
    points2 text not null default '' collate nocase,
    mw integer not null default 0,
    mt_country text not null default '' collate nocase,
    mb_country text not null default '' collate nocase,
    mtseeding text not null default '' collate nocase,
    mbseeding text not null default '' collate nocase,
    mtsex text not null default '' collate nocase,
    mbsex text not null default '' collate nocase,
    mtar text not null default '' collate nocase,
    mbar text not null default '' collate nocase,
    p1 text not null default '' collate nocase,
    p2 text not null default '' collate nocase,
    p3 text not null default '' collate nocase,
    p4 text not null default '' collate nocase,
    p1_matchnote text not null default '' collate nocase,
    p2_matchnote text not null default '' collate nocase,
    p3_matchnote text not null default '' collate nocase,
    p4_matchnote text not null default '' collate nocase,
    mg_matchnote text not null default '' collate nocase,

    -- Place in the schedule. cid: above 0 a court, 0 none, -1 fa, -2 cb, -3 tbc, -4 dcb.
    scheduledate text not null default '' collate nocase,
    day_idx integer not null default 0,
    cid integer not null default 0,
    matchnumber integer not null default 0,
    matchnumber_live integer not null default 0,
    matchtime text not null default '' collate nocase,
    matchtime_int integer not null default -1,
    nbat text not null default '' collate nocase,

    -- State and change tracking. States are text: '0' bye, '1' empty, '2' live, '2.1' unfinished, '3' dead.
    match_state text not null default '1' collate nocase,
    prev_match_state text not null default '' collate nocase,
    changed integer not null default 0,

    -- The draw as last saved: rollback returns to these, a save compares against them.
    imtttt text not null default '' collate nocase,
    imtfrn text not null default '' collate nocase,
    imttag text not null default '' collate nocase,
    imbttt text not null default '' collate nocase,
    imbfrn text not null default '' collate nocase,
    imbtag text not null default '' collate nocase,
    imwttt text not null default '' collate nocase,
    imwfrn text not null default '' collate nocase,
    imwtag text not null default '' collate nocase,
    imatchscore text not null default '' collate nocase,
    imatchlongscore text not null default '' collate nocase,
    imtseeding text not null default '' collate nocase,
    imbseeding text not null default '' collate nocase,
    imt_country text not null default '' collate nocase,
    imb_country text not null default '' collate nocase,
    imtar text not null default '' collate nocase,
    imbar text not null default '' collate nocase,
    imtsex text not null default '' collate nocase,
    imbsex text not null default '' collate nocase,
    ip1 text not null default '' collate nocase,
    ip2 text not null default '' collate nocase,
    ip3 text not null default '' collate nocase,
    ip4 text not null default '' collate nocase,
    ipoints1 text not null default '' collate nocase,
    ipoints2 text not null default '' collate nocase,

    -- Cleared when the board renumbers a court after a result.
    todo integer not null default 0
);
create index schedule_sid on schedule (sid);
create index schedule_eid on schedule (eid);
create index schedule_day on schedule (scheduledate, cid, matchnumber);
-- The rows whose state a recount of any event must put right, and the rows that died since their last count:
-- a save finds them without reading the whole table. Both hold few rows or none.
create index schedule_stale_empty_top on schedule (eid) where mtttt = '' and match_state <> '1';
create index schedule_stale_bye_top on schedule (eid) where mtttt = 'bye' and match_state <> '0';
create index schedule_newly_dead on schedule (scheduledate, cid) where match_state = '3' and prev_match_state <> '3';
