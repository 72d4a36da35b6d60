-- Tables of the installation: settings, seeding patterns, print configurations, reference lists and accounts.
-- Texts hold '' rather than NULL and compare case-blind; ids are chosen by the program (maximum plus 1).

-- Settings, one row per key; the rows come with the installation.
create table disk_vars (
    nm text not null unique collate nocase,
    value text not null default '' collate nocase,
    note text not null default '' collate nocase
);

-- Seeding patterns: one index row per pattern, one row per position (seed 0 where none).
-- "system" patterns come with the installation and cannot be deleted.
create table seedposmapping_index (
    idx integer not null default 0,
    nm text not null default '' collate nocase,
    drawsize integer not null default 0,
    "default" integer not null default 0,
    "system" integer not null default 0
);
create index seedposmapping_index_idx on seedposmapping_index (idx);
create index seedposmapping_index_drawsize on seedposmapping_index (drawsize);

create table seedposmapping (
    idx integer not null default 0,
    nm text not null default '' collate nocase,
    pos integer not null default 0,
    seed integer not null default 0
);
create index seedposmapping_idx on seedposmapping (idx);

-- Print configurations: the page share (percentages) a draw picture takes. "default" is the text
-- 'default' on the row that serves its draw kind; drawsize -64 is one half of a split 128 draw.
create table prints (
    idx integer not null default 0,
    name text not null default '' collate nocase,
    "system" integer not null default 0,
    "default" text not null default '' collate nocase,
    drawsize integer not null default 0,
    drawtype text not null default '' collate nocase,
    orientation text not null default '' collate nocase,
    "left" integer not null default 0,
    "top" integer not null default 0,
    width integer not null default 0,
    height integer not null default 0,
    fontname text not null default '' collate nocase,
    fontsize integer not null default 0,
    fontbold integer not null default 0,
    fontitalic integer not null default 0
);
create index prints_idx on prints (idx);

-- Country codes (ISO 3166-1 alpha-3, with the alpha-2 form beside it) and English names.
create table ccodes (
    code text not null default '' collate nocase,
    country text not null default '' collate nocase,
    code2 text not null default '' collate nocase
);

-- Canvas size of a knock-out draw picture by draw size, in twips and in pixels at 96 dpi;
-- ds -64 and -128 are the two halves of a split 128 draw.
create table pic_sizes (
    ds integer not null default 0,
    rows integer not null default 0,
    levels integer not null default 0,
    width integer not null default 0,
    height integer not null default 0,
    width_px integer not null default 0,
    height_px integer not null default 0
);

-- Numbered text lines for list building.
create table lines (
    idx integer not null default 0,
    ln text not null default '' collate nocase
);

-- File lists sorted by name, size or date.
create table sort_dir (
    nm text not null default '' collate nocase,
    fs integer not null default 0,
    dt text not null default '' collate nocase
);
create table sort_dir2 (
    nm text not null default '' collate nocase,
    fs integer not null default 0,
    dt text not null default '' collate nocase
);

-- Help texts shown in the text viewer.
create table readme (
    idx integer not null default 0,
    nm text not null default '' collate nocase,
    txt text not null default '' collate nocase
);

-- Accounts of the online service. The reply of an account refresh fills the columns from the sixth
-- (ftpurl) on by position, so the order of the columns matters.
create table acct_accountdata (
    idx integer not null default 0,
    servlet text not null default '' collate nocase,
    custid text not null default '' collate nocase,
    password text not null default '' collate nocase,
    "default" text not null default '' collate nocase,
    ftpurl text not null default '' collate nocase,
    maxbytes integer not null default 0,
    maxentries integer not null default 0,
    maxevents integer not null default 0,
    numentries integer not null default 0,
    signupdate text not null default '' collate nocase,
    signupemail text not null default '' collate nocase,
    last_refresh text not null default '' collate nocase
);

-- Online state per account: limits and "entries^withdrawals", each "open" or "closed".
create table acct_online_tournament (
    custid text not null default '' collate nocase,
    entries_withdrawals text not null default '' collate nocase,
    maxevents integer not null default 0,
    scnti integer not null default 0,
    dcnti integer not null default 0,
    xcnti integer not null default 0,
    xdcnti integer not null default 0
);

create table acct_onlineevents (
    custid text not null default '' collate nocase,
    eid integer not null default 0,
    eventname text not null default '' collate nocase
);

-- The last known list of an account's remote website files.
create table acct_remote_website (
    custid text not null default '' collate nocase,
    pos integer not null default 0,
    fn text not null default '' collate nocase
);
