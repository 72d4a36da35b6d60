-- Durable tables of a tournament file.
-- Texts hold '' rather than NULL and compare case-blind; ids are chosen by the program (maximum plus 1),
-- so no column is an engine-assigned key and id indexes are deliberately not unique.

-- The one row (idx 1) of the tournament's own details and online limits.
create table tournament (
    idx integer not null default 0,
    tournament text not null default '' collate nocase,
    dates text not null default '' collate nocase,
    currencycode text not null default '' collate nocase,
    venue text not null default '' collate nocase,
    address text not null default '' collate nocase,
    country text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    tdetails text not null default '' collate nocase,
    tdetails2 text not null default '' collate nocase,
    entryinstructions text not null default '' collate nocase,
    paymentinstructions text not null default '' collate nocase,
    messagetoplayers text not null default '' collate nocase,
    conditions text not null default '' collate nocase,
    -- 0 means no limit; xdcnti is 1 when mixed events count as doubles.
    maxevents integer not null default 0,
    scnti integer not null default 0,
    dcnti integer not null default 0,
    xcnti integer not null default 0,
    xdcnti integer not null default 0,
    ccemails text not null default '' collate nocase,
    dosend integer not null default 0
);

-- Labelled details written into the website's details text file.
create table tournaments (
    idx integer not null default 0,
    tournament text not null default '' collate nocase,
    phone text not null default '' collate nocase,
    mobile text not null default '' collate nocase,
    fax text not null default '' collate nocase,
    email text not null default '' collate nocase,
    surface text not null default '' collate nocase,
    currencycode text not null default '' collate nocase,
    entriesclose text not null default '' collate nocase,
    withdrawaldeadline text not null default '' collate nocase,
    officialball text not null default '' collate nocase,
    address text not null default '' collate nocase,
    drawsposted text not null default '' collate nocase,
    prizemoney text not null default '' collate nocase,
    director text not null default '' collate nocase,
    venue text not null default '' collate nocase,
    dates text not null default '' collate nocase,
    cpt text not null default '' collate nocase,
    officialwebsite text not null default '' collate nocase,
    sponsor text not null default '' collate nocase,
    country text not null default '' collate nocase
);

-- Players and teams. The leading columns follow the player record of the entries file, whose reader stores
-- fields by position; "timezone" takes that record's zone word.
create table players (
    "timestamp" text not null default '' collate nocase,
    timezone text not null default '' collate nocase,
    pid integer not null default 0,
    fname text not null default '' collate nocase,
    sname text not null default '' collate nocase,
    email text not null default '' collate nocase,
    password text not null default '' collate nocase,
    dob text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    address1 text not null default '' collate nocase,
    address2 text not null default '' collate nocase,
    city text not null default '' collate nocase,
    state text not null default '' collate nocase,
    postcode text not null default '' collate nocase,
    country text not null default '' collate nocase,
    phone text not null default '' collate nocase,
    mobile text not null default '' collate nocase,
    rating text not null default '' collate nocase,
    ranking text not null default '' collate nocase,
    results text not null default '' collate nocase,
    club text not null default '' collate nocase,
    availabilityrestrictions text not null default '' collate nocase,
    tsd text not null default '' collate nocase,
    message text not null default '' collate nocase,
    -- 1 player, 0 team.
    pval integer not null default 1,
    player text not null default '' collate nocase,
    address text not null default '' collate nocase,
    ar text not null default '' collate nocase,
    notes text not null default '' collate nocase,
    fid integer not null default 0,
    downloaded integer not null default 0,
    evt_str text not null default '' collate nocase,
    numevents integer not null default 0,
    player_bill real not null default 0,
    amount_player_has_paid real not null default 0,
    amount_player_must_pay real not null default 0,
    paid_state text not null default '' collate nocase
);
create index players_pid on players (pid);
create index players_player on players (player);

create table folders (
    fid integer not null default 0,
    nm text not null default '' collate nocase
);
create index folders_fid on folders (fid);

-- Events. The leading columns follow the event record of the entries file (stored by position).
create table events (
    eid integer not null default 0,
    eventname text not null default '' collate nocase,
    sex text not null default '' collate nocase,
    pte text not null default '' collate nocase,
    fee text not null default '' collate nocase,
    singdobs text not null default '' collate nocase,
    drawtype text not null default '' collate nocase,
    pts integer not null default 0,
    drawdone integer not null default 0,
    drawsize integer not null default 0,
    min_sid integer not null default 0,
    max_sid integer not null default 0,
    timestamp_text text not null default '' collate nocase,
    qualifiers integer not null default 0,
    wildcards integer not null default 0
);
create index events_eid on events (eid);

-- Resolved entries. seeding has integer affinity so numbers sort as numbers, while texts such as "3/4"
-- from loaded files are kept as they are.
create table evententries (
    ent_idx integer not null default 0,
    eid integer not null default 0,
    pid integer not null default 0,
    en text not null default '' collate nocase,
    sd text not null default '' collate nocase,
    player text not null default '' collate nocase,
    playerfname text not null default '' collate nocase,
    playersname text not null default '' collate nocase,
    p1name text not null default '' collate nocase,
    partner text not null default '' collate nocase,
    partnerfname text not null default '' collate nocase,
    partnersname text not null default '' collate nocase,
    rating text not null default '' collate nocase,
    ranking text not null default '' collate nocase,
    country text not null default '' collate nocase,
    ar text not null default '' collate nocase,
    psex text not null default '' collate nocase,
    reserve integer not null default 0,
    seeding integer not null default 0,
    drawdone integer not null default 0,
    eventfee text not null default '' collate nocase
);
create index evententries_ent_idx on evententries (ent_idx);
create index evententries_eid on evententries (eid);
create index evententries_player on evententries (player);

-- Raw doubles entries; p1 and p2 are "free", "taken" or "preq".
create table rawdoublesentries (
    rdidx integer not null default 0,
    eid integer not null default 0,
    pid integer not null default 0,
    en text not null default '' collate nocase,
    player text not null default '' collate nocase,
    playerfname text not null default '' collate nocase,
    playersname text not null default '' collate nocase,
    p1sex text not null default '' collate nocase,
    partnername text not null default '' collate nocase,
    partnerfname text not null default '' collate nocase,
    partnersname text not null default '' collate nocase,
    p2sex text not null default '' collate nocase,
    p1 text not null default '' collate nocase,
    p2 text not null default '' collate nocase
);
create index rawdoublesentries_rdidx on rawdoublesentries (rdidx);
create index rawdoublesentries_eid on rawdoublesentries (eid);

-- Days and courts. The day and court tables and their working copies share one column order,
-- since the days window copies them with "insert into ... select *".
create table scheduledays (
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
create index scheduledays_sdate on scheduledays (sdate);

create table scheduledays_courts (
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
create index scheduledays_courts_sdate_cid on scheduledays_courts (sdate, cid);

-- An event's own round labels; tooltiptext 'bye' marks a position that plays no match.
create table rounds (
    eid integer not null default 0,
    rid integer not null default 0,
    pos integer not null default 0,
    rname text not null default '' collate nocase,
    caption text not null default '' collate nocase,
    tooltiptext text not null default '' collate nocase
);
create index rounds_eid on rounds (eid);

create table roundstemp (
    eid integer not null default 0,
    rid integer not null default 0,
    pos integer not null default 0,
    rname text not null default '' collate nocase,
    caption text not null default '' collate nocase,
    tooltiptext text not null default '' collate nocase
);

-- A hand-placed draw, one row per first-round slot.
create table force_draw (
    eid integer not null default 0,
    pos integer not null default 0,
    seed text not null default '' collate nocase,
    player text not null default '' collate nocase,
    country text not null default '' collate nocase,
    ar text not null default '' collate nocase,
    psex text not null default '' collate nocase
);
create index force_draw_eid on force_draw (eid);
