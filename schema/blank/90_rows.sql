-- The rows every tournament file starts with.

-- The tournament's single details row.
insert into tournament (idx) values (1);
insert into tournaments (idx) values (1);

-- The day with no date: the bucket that counts the matches that have no day.
insert into scheduledays (idx, sdate) values (0, '');
