-- Scratch lists of the analysis windows, of the same shape as the tournament file's.
create table alist (nm text not null default '' collate nocase);
create table alist4 (nm text not null default '' collate nocase, cnt integer not null default 0);
create table alist9_nm_sx (
    nm text not null default '' collate nocase,
    sx text not null default '' collate nocase,
    flag integer not null default 0
);
-- The standings of a round robin whose picture is drawn from the results file on view.
create table alist10_rr (nm text not null default '' collate nocase, points real not null default 0);
-- Text shown in the analysis windows' text box, line by line.
create table qv4_text_box_file_text (
    id text not null default '' collate nocase,
    ln integer not null default 0,
    file_text text not null default '' collate nocase
);
