-- Short help texts, shown in the text viewer by idx.

insert into readme (idx, nm, txt) values (1, 'file formats',
'player and event files: one record a line, fields separated by ^, no header, no quotes.

qv1 (full player record), 16 fields:
first name^second name^email^date of birth^address^city^state^postcode^from code^phone^mobile^sex^rating^ranking^club^player or team
sex is male or female; player or team is 1 for a player, 0 for a team.
for a team the first name holds the team name (at most 18 characters) and the second name is ignored.

qv2 (short player record), 5 fields:
first name^second name^sex^from code^player or team
the from code has exactly 3 characters.

qv3 (event), 5 fields:
event name^singles or doubles^sex^player type^fee
sex is male, female, mixed or neutral; player type is p (players only), t (teams only) or e (either).
imported events are knock-out events.');

insert into readme (idx, nm, txt) values (2, 'results reimport (qv6)',
'one line per match, eight fields, each followed by a comma:
match id,player 1,player 2,result flag,short score,long score,points 1,points 2,
result flag: 0 no winner, 1 player 1 won, 2 player 2 won.
short score at most 14 characters, long score at most 100, points at most 10; empty points count as 0.
the names must be those of the match; a match whose following match is played is refused.');

insert into readme (idx, nm, txt) values (3, 'seeding patterns',
'a seeding pattern says on which first-round line each seed of a draw size stands.
every draw size has one default pattern, which do draw uses.
the system patterns came with the program: they cannot be edited or deleted, and a draw size
falls back on its system pattern when its default pattern is deleted.
a seed that no entry holds places nothing; an entry whose seed has no line is drawn as a player.');

insert into readme (idx, nm, txt) values (4, 'state marks',
'+ empty: at least one side is not known yet
? live: both sides known, no winner
^ unf: live, marked unfinished
¿ dead: the winner is known
the marks are reserved: they cannot be typed into names or scores.');

insert into readme (idx, nm, txt) values (5, 'places',
'fa: first available, on the day
tbc: on the day, to be confirmed
dcb: on the day''s clipboard
cb: on the clipboard, no day
nb 10:00: not before 10:00; at 10:00: at 10:00');
