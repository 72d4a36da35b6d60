-- Results analysis. The events and matches of results files, read by position from their records:
-- the first 8 event columns and the first 36 match columns are the record's fields in order (the
-- record carries p1 twice, so p2 takes the second p1, and its last field is the day as dd/mmm/yy);
-- the rest are added by the reader or used by the draw pictures. "single" holds one open file,
-- "multiple" a compiled set; both have one shape, as pictures copy rows from one to the other.

create table qv4_single_events (
    eid integer not null default 0,
    eventname text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    drawtype text not null default '' collate nocase,
    drawsize integer not null default 0,
    pts integer not null default 0,
    timestamp_text text not null default '' collate nocase,
    tn text not null default '' collate nocase,
    dts text not null default '' collate nocase,
    venue text not null default '' collate nocase,
    address text not null default '' collate nocase,
    country text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    fn text not null default '' collate nocase
);
create table qv4_single_schedule (
    sid integer not null default 0,
    eid integer not null default 0,
    "match" integer not null default 0,
    rid integer not null default 0,
    rname text not null default '' collate nocase,
    rsname text not null default '' collate nocase,
    mt text not null default '' collate nocase,
    mb text not null default '' collate nocase,
    mtttt text not null default '' collate nocase,
    mbttt text not null default '' collate nocase,
    mtfrn text not null default '' collate nocase,
    mttag text not null default '' collate nocase,
    mbfrn text not null default '' collate nocase,
    mbtag text not null default '' collate nocase,
    mwtag text not null default '' collate nocase,
    matchscore text not null default '' collate nocase,
    matchlongscore text not null default '' collate nocase,
    points1 text not null default '' collate nocase,
    points2 text not null default '' collate nocase,
    mt_country text not null default '' collate nocase,
    mb_country text not null default '' collate nocase,
    mtseeding text not null default '' collate nocase,
    mbseeding text not null default '' collate nocase,
    mtsex text not null default '' collate nocase,
    mbsex text not null default '' collate nocase,
    eventname text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    evtsex text not null default '' collate nocase,
    drawtype text not null default '' collate nocase,
    ds integer not null default 0,
    pts integer not null default 0,
    p1 text not null default '' collate nocase,
    p2 text not null default '' collate nocase,
    p3 text not null default '' collate nocase,
    p4 text not null default '' collate nocase,
    dts_date text not null default '' collate nocase,
    tn text not null default '' collate nocase,
    dts text not null default '' collate nocase,
    country text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    fn text not null default '' collate nocase,
    mwttt text not null default '' collate nocase,
    mwfrn text not null default '' collate nocase,
    mw_ptr text not null default '' collate nocase,
    maxrounds integer not null default 0,
    scheduledate text not null default '' collate nocase,
    cid integer not null default 0,
    matchnumber integer not null default 0,
    matchtime text not null default '' collate nocase,
    nbat text not null default '' collate nocase,
    mtar text not null default '' collate nocase,
    mbar text not null default '' collate nocase
);
create index qv4_single_schedule_eid on qv4_single_schedule (eid);
create table qv4_single_players (
    nm text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    flag integer not null default 0,
    sid integer not null default 0
);

create table qv4_multiple_events (
    eid integer not null default 0,
    eventname text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    drawtype text not null default '' collate nocase,
    drawsize integer not null default 0,
    pts integer not null default 0,
    timestamp_text text not null default '' collate nocase,
    tn text not null default '' collate nocase,
    dts text not null default '' collate nocase,
    venue text not null default '' collate nocase,
    address text not null default '' collate nocase,
    country text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    fn text not null default '' collate nocase
);
create table qv4_multiple_schedule (
    sid integer not null default 0,
    eid integer not null default 0,
    "match" integer not null default 0,
    rid integer not null default 0,
    rname text not null default '' collate nocase,
    rsname text not null default '' collate nocase,
    mt text not null default '' collate nocase,
    mb text not null default '' collate nocase,
    mtttt text not null default '' collate nocase,
    mbttt text not null default '' collate nocase,
    mtfrn text not null default '' collate nocase,
    mttag text not null default '' collate nocase,
    mbfrn text not null default '' collate nocase,
    mbtag text not null default '' collate nocase,
    mwtag text not null default '' collate nocase,
    matchscore text not null default '' collate nocase,
    matchlongscore text not null default '' collate nocase,
    points1 text not null default '' collate nocase,
    points2 text not null default '' collate nocase,
    mt_country text not null default '' collate nocase,
    mb_country text not null default '' collate nocase,
    mtseeding text not null default '' collate nocase,
    mbseeding text not null default '' collate nocase,
    mtsex text not null default '' collate nocase,
    mbsex text not null default '' collate nocase,
    eventname text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    evtsex text not null default '' collate nocase,
    drawtype text not null default '' collate nocase,
    ds integer not null default 0,
    pts integer not null default 0,
    p1 text not null default '' collate nocase,
    p2 text not null default '' collate nocase,
    p3 text not null default '' collate nocase,
    p4 text not null default '' collate nocase,
    dts_date text not null default '' collate nocase,
    tn text not null default '' collate nocase,
    dts text not null default '' collate nocase,
    country text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    fn text not null default '' collate nocase,
    mwttt text not null default '' collate nocase,
    mwfrn text not null default '' collate nocase,
    mw_ptr text not null default '' collate nocase,
    maxrounds integer not null default 0,
    scheduledate text not null default '' collate nocase,
    cid integer not null default 0,
    matchnumber integer not null default 0,
    matchtime text not null default '' collate nocase,
    nbat text not null default '' collate nocase,
    mtar text not null default '' collate nocase,
    mbar text not null default '' collate nocase
);
create index qv4_multiple_schedule_eid on qv4_multiple_schedule (eid);
create table qv4_multiple_players (
    nm text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    flag integer not null default 0,
    sid integer not null default 0
);

-- The files of the present compilation, and the files chosen for import (name and full path).
create table qv4_multiple_current_build (
    fn text not null default '' collate nocase,
    import_order integer not null default 0
);
create table qv4_multiple_file_import (
    fn text not null default '' collate nocase,
    fnp text not null default '' collate nocase
);
