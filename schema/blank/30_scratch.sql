-- Scratch tables of a tournament file: emptied at every open, filled and read within one operation.

-- Lists of names, ids and counts.
create table alist (nm text not null default '' collate nocase);
create table alist_int (idx integer not null default 0);
create table alist2 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist3 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist4 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist5 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist6 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist9_nm_sx (
    nm text not null default '' collate nocase,
    sx text not null default '' collate nocase,
    flag integer not null default 0
);
-- Round-robin standings. Points may be fractional.
create table alist10_rr (nm text not null default '' collate nocase, points real not null default 0);
create table eids (eid integer not null default 0, nm text not null default '' collate nocase);
create table lists_sids (sid integer not null default 0);
create table livedays (sdate text not null default '' collate nocase);
-- File lists sorted by name, size or date.
create table sort_dir (
    nm text not null default '' collate nocase,
    fs integer not null default 0,
    dt text not null default '' collate nocase
);

-- Knock-out placing. pwq: 0 player, 1 wildcard, 2 qualifier, 3 bye.
create table draw_stage1 (
    i integer not null default 0,
    seeding text not null default '' collate nocase,
    player text not null default '' collate nocase,
    pwq integer not null default 0,
    cty text not null default '' collate nocase,
    ar text not null default '' collate nocase,
    psex text not null default '' collate nocase,
    gone integer not null default 0
);
create table draw_stage2 (
    i integer not null default 0,
    player text not null default '' collate nocase,
    seed text not null default '' collate nocase,
    cty text not null default '' collate nocase,
    ar text not null default '' collate nocase,
    psex text not null default '' collate nocase
);

-- Round-robin grid written out as text: w1..w8 are wins against player 1..8.
create table rr_screenscrape (
    idx integer not null default 0,
    frn text not null default '' collate nocase,
    tag text not null default '' collate nocase,
    ttt text not null default '' collate nocase,
    w1 integer not null default 0,
    w2 integer not null default 0,
    w3 integer not null default 0,
    w4 integer not null default 0,
    w5 integer not null default 0,
    w6 integer not null default 0,
    w7 integer not null default 0,
    w8 integer not null default 0,
    totalwins integer not null default 0,
    points real not null default 0
);

-- Player times of the documents and of the website.
create table player_times_idocs (
    player text not null default '' collate nocase,
    eventname text not null default '' collate nocase,
    details text not null default '' collate nocase,
    location text not null default '' collate nocase,
    rname text not null default '' collate nocase,
    scheduledate text not null default '' collate nocase,
    context text not null default '' collate nocase,
    sid integer not null default 0,
    playertimes text not null default '' collate nocase
);
create table player_times_website (
    player text not null default '' collate nocase,
    eventname text not null default '' collate nocase,
    details text not null default '' collate nocase,
    location text not null default '' collate nocase,
    rname text not null default '' collate nocase,
    scheduledate text not null default '' collate nocase,
    context text not null default '' collate nocase,
    sid integer not null default 0,
    playertimes text not null default '' collate nocase
);

-- Working copies of the day tables, same column order as the originals.
create table scheduledays_temp (
    idx integer not null default 0,
    sdate text not null default '' collate nocase,
    fmt1 text not null default '' collate nocase,
    fmt2 text not null default '' collate nocase,
    fmt3 text not null default '' collate nocase,
    fmt4 text not null default '' collate nocase,
    ind text not null default '' collate nocase,
    empty_cnt integer not null default 0,
    live_cnt integer not null default 0,
    unf_cnt integer not null default 0,
    dead_cnt integer not null default 0,
    empty_cnt_ind text not null default '' collate nocase,
    live_cnt_ind text not null default '' collate nocase,
    unf_cnt_ind text not null default '' collate nocase,
    dead_cnt_ind text not null default '' collate nocase
);
create table scheduledays_courts_temp (
    idx integer not null default 0,
    sdate text not null default '' collate nocase,
    cid integer not null default 0,
    courtname text not null default '' collate nocase,
    starttime text not null default '' collate nocase,
    fmt1 text not null default '' collate nocase,
    fmt2 text not null default '' collate nocase,
    fmt3 text not null default '' collate nocase,
    fmt4 text not null default '' collate nocase,
    ind text not null default '' collate nocase,
    empty_cnt integer not null default 0,
    live_cnt integer not null default 0,
    unf_cnt integer not null default 0,
    dead_cnt integer not null default 0,
    empty_cnt_ind text not null default '' collate nocase,
    live_cnt_ind text not null default '' collate nocase,
    unf_cnt_ind text not null default '' collate nocase,
    dead_cnt_ind text not null default '' collate nocase
);

-- Statistics of the assistant. "cid>0" is a column name; the place counters are
-- cid0 (no court), "cid>0" (a court), fac (-1), cb (-2), tbd (-3), dcb (-4).
create table stats_by_event (
    eid integer not null default 0,
    eventname text not null default '' collate nocase,
    empty integer not null default 0,
    live integer not null default 0,
    unf integer not null default 0,
    dead integer not null default 0,
    total integer not null default 0,
    pct_done real not null default 0,
    pct_remaining real not null default 0,
    cid0 integer not null default 0,
    "cid>0" integer not null default 0,
    fac integer not null default 0,
    cb integer not null default 0,
    dcb integer not null default 0,
    tbd integer not null default 0
);
create table stats_by_cid (
    cid integer not null default 0,
    empty integer not null default 0,
    live integer not null default 0,
    unf integer not null default 0,
    dead integer not null default 0,
    total integer not null default 0,
    cid0 integer not null default 0,
    "cid>0" integer not null default 0,
    fac integer not null default 0,
    cb integer not null default 0,
    dcb integer not null default 0,
    tbd integer not null default 0
);
create table stats_by_day (
    sdate text not null default '' collate nocase,
    idx integer not null default 0,
    empty integer not null default 0,
    live integer not null default 0,
    unf integer not null default 0,
    dead integer not null default 0,
    total integer not null default 0,
    cid0 integer not null default 0,
    "cid>0" integer not null default 0,
    fac integer not null default 0,
    cb integer not null default 0,
    dcb integer not null default 0,
    tbd integer not null default 0
);
-- Summary page: a caption, a second caption and the display text of each line.
create table stats_disp1 (
    idx integer not null default 0,
    cpt text not null default '' collate nocase,
    cpt2 text not null default '' collate nocase,
    ttt text not null default '' collate nocase,
    cnt integer not null default 0
);
create table stats_disp (
    idx integer not null default 0,
    cpt text not null default '' collate nocase,
    cpt2 text not null default '' collate nocase,
    ttt text not null default '' collate nocase,
    cnt integer not null default 0
);
create table player_match_counts (
    pn text not null default '' collate nocase,
    live_cnt integer not null default 0,
    unf_cnt integer not null default 0,
    dead_cnt integer not null default 0
);

-- Time conflicts: one row per offender (player or court) per day; sids are joined by ".".
create table calc_time_conflicts_matches (
    sdate text not null default '' collate nocase,
    pn text not null default '' collate nocase,
    cnt integer not null default 0,
    sids text not null default '' collate nocase,
    tm integer not null default 0
);
create table calc_time_conflicts_courts (
    sdate text not null default '' collate nocase,
    cid integer not null default 0,
    cnt integer not null default 0,
    sids text not null default '' collate nocase,
    tm integer not null default 0
);
create table time_conflicts_matches_day (
    sid1 integer not null default 0,
    sid2 integer not null default 0,
    sid1_details text not null default '' collate nocase,
    sid2_details text not null default '' collate nocase
);

-- Saved pages, line by line under the page's name; ln keeps the line order.
create table text_box_file_text (
    id text not null default '' collate nocase,
    ln integer not null default 0,
    file_text text not null default '' collate nocase
);
create table qv4_text_box_file_text (
    id text not null default '' collate nocase,
    ln integer not null default 0,
    file_text text not null default '' collate nocase
);

-- Import staging: the fields of a file line as read, whether it was taken, and why not.
create table players_import (
    fname text not null default '' collate nocase,
    sname text not null default '' collate nocase,
    email text not null default '' collate nocase,
    dob text not null default '' collate nocase,
    address text not null default '' collate nocase,
    city text not null default '' collate nocase,
    state text not null default '' collate nocase,
    postcode text not null default '' collate nocase,
    country text not null default '' collate nocase,
    phone text not null default '' collate nocase,
    mobile text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    rating text not null default '' collate nocase,
    ranking text not null default '' collate nocase,
    club text not null default '' collate nocase,
    pval text not null default '' collate nocase,
    accepted integer not null default 0,
    reason text not null default '' collate nocase,
    ln integer not null default 0,
    pid integer not null default 0,
    player text not null default '' collate nocase,
    fid integer not null default 0,
    "timestamp" text not null default '' collate nocase,
    downloaded integer not null default 0
);
create table events_import (
    eventname text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    pte text not null default '' collate nocase,
    fee text not null default '' collate nocase,
    accepted integer not null default 0,
    reason text not null default '' collate nocase,
    ln integer not null default 0,
    eid integer not null default 0,
    drawtype text not null default '' collate nocase
);
