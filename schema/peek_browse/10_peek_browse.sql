-- Entries data looked into without touching the tournament: "peek_" holds what was downloaded from
-- the online service, "browse_" a stored entries file. The data tables have the columns of the
-- tournament tables in the same order, since the entries file reader stores fields by position.

-- The file's tournament name and when it was taken.
create table peek_info (
    tname text not null default '' collate nocase,
    "timestamp" text not null default '' collate nocase,
    fn text not null default '' collate nocase
);
create table peek_players (
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
create table peek_events (
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
create table peek_evententries (
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
create table peek_rawdoublesentries (
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
create index peek_players_pid on peek_players (pid);
create index peek_evententries_pid on peek_evententries (pid);
create index peek_rawdoublesentries_pid on peek_rawdoublesentries (pid);

-- The file's tournament name and when it was taken.
create table browse_info (
    tname text not null default '' collate nocase,
    "timestamp" text not null default '' collate nocase,
    fn text not null default '' collate nocase
);
create table browse_players (
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
create table browse_events (
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
create table browse_evententries (
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
create table browse_rawdoublesentries (
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
create index browse_players_pid on browse_players (pid);
create index browse_evententries_pid on browse_evententries (pid);
create index browse_rawdoublesentries_pid on browse_rawdoublesentries (pid);
