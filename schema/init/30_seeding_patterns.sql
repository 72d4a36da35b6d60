-- System seeding patterns, the default of each draw size: seed 1 on the first line, seed 2 on the last,
-- then each half, quarter, eighth ... down to blocks of four takes a seed at its other end, so that the
-- two seeds of a section meet there as the strongest against the weakest (1 v 4 and 2 v 3 in the semis,
-- 1 v 8, 4 v 5, 3 v 6, 2 v 7 in the quarters). Every position has a row; seed 0 marks none.

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (1, 'system 2', 2, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (1, 'system 2', 1, 1), (1, 'system 2', 2, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (2, 'system 4', 4, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (2, 'system 4', 1, 1), (2, 'system 4', 2, 0), (2, 'system 4', 3, 0), (2, 'system 4', 4, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (3, 'system 8', 8, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (3, 'system 8', 1, 1), (3, 'system 8', 2, 0), (3, 'system 8', 3, 0), (3, 'system 8', 4, 4), (3, 'system 8', 5, 3), (3, 'system 8', 6, 0), (3, 'system 8', 7, 0), (3, 'system 8', 8, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (4, 'system 16', 16, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (4, 'system 16', 1, 1), (4, 'system 16', 2, 0), (4, 'system 16', 3, 0), (4, 'system 16', 4, 8), (4, 'system 16', 5, 5), (4, 'system 16', 6, 0), (4, 'system 16', 7, 0), (4, 'system 16', 8, 4);
insert into seedposmapping (idx, nm, pos, seed) values (4, 'system 16', 9, 3), (4, 'system 16', 10, 0), (4, 'system 16', 11, 0), (4, 'system 16', 12, 6), (4, 'system 16', 13, 7), (4, 'system 16', 14, 0), (4, 'system 16', 15, 0), (4, 'system 16', 16, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (5, 'system 32', 32, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (5, 'system 32', 1, 1), (5, 'system 32', 2, 0), (5, 'system 32', 3, 0), (5, 'system 32', 4, 16), (5, 'system 32', 5, 9), (5, 'system 32', 6, 0), (5, 'system 32', 7, 0), (5, 'system 32', 8, 8);
insert into seedposmapping (idx, nm, pos, seed) values (5, 'system 32', 9, 5), (5, 'system 32', 10, 0), (5, 'system 32', 11, 0), (5, 'system 32', 12, 12), (5, 'system 32', 13, 13), (5, 'system 32', 14, 0), (5, 'system 32', 15, 0), (5, 'system 32', 16, 4);
insert into seedposmapping (idx, nm, pos, seed) values (5, 'system 32', 17, 3), (5, 'system 32', 18, 0), (5, 'system 32', 19, 0), (5, 'system 32', 20, 14), (5, 'system 32', 21, 11), (5, 'system 32', 22, 0), (5, 'system 32', 23, 0), (5, 'system 32', 24, 6);
insert into seedposmapping (idx, nm, pos, seed) values (5, 'system 32', 25, 7), (5, 'system 32', 26, 0), (5, 'system 32', 27, 0), (5, 'system 32', 28, 10), (5, 'system 32', 29, 15), (5, 'system 32', 30, 0), (5, 'system 32', 31, 0), (5, 'system 32', 32, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (6, 'system 64', 64, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 1, 1), (6, 'system 64', 2, 0), (6, 'system 64', 3, 0), (6, 'system 64', 4, 32), (6, 'system 64', 5, 17), (6, 'system 64', 6, 0), (6, 'system 64', 7, 0), (6, 'system 64', 8, 16);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 9, 9), (6, 'system 64', 10, 0), (6, 'system 64', 11, 0), (6, 'system 64', 12, 24), (6, 'system 64', 13, 25), (6, 'system 64', 14, 0), (6, 'system 64', 15, 0), (6, 'system 64', 16, 8);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 17, 5), (6, 'system 64', 18, 0), (6, 'system 64', 19, 0), (6, 'system 64', 20, 28), (6, 'system 64', 21, 21), (6, 'system 64', 22, 0), (6, 'system 64', 23, 0), (6, 'system 64', 24, 12);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 25, 13), (6, 'system 64', 26, 0), (6, 'system 64', 27, 0), (6, 'system 64', 28, 20), (6, 'system 64', 29, 29), (6, 'system 64', 30, 0), (6, 'system 64', 31, 0), (6, 'system 64', 32, 4);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 33, 3), (6, 'system 64', 34, 0), (6, 'system 64', 35, 0), (6, 'system 64', 36, 30), (6, 'system 64', 37, 19), (6, 'system 64', 38, 0), (6, 'system 64', 39, 0), (6, 'system 64', 40, 14);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 41, 11), (6, 'system 64', 42, 0), (6, 'system 64', 43, 0), (6, 'system 64', 44, 22), (6, 'system 64', 45, 27), (6, 'system 64', 46, 0), (6, 'system 64', 47, 0), (6, 'system 64', 48, 6);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 49, 7), (6, 'system 64', 50, 0), (6, 'system 64', 51, 0), (6, 'system 64', 52, 26), (6, 'system 64', 53, 23), (6, 'system 64', 54, 0), (6, 'system 64', 55, 0), (6, 'system 64', 56, 10);
insert into seedposmapping (idx, nm, pos, seed) values (6, 'system 64', 57, 15), (6, 'system 64', 58, 0), (6, 'system 64', 59, 0), (6, 'system 64', 60, 18), (6, 'system 64', 61, 31), (6, 'system 64', 62, 0), (6, 'system 64', 63, 0), (6, 'system 64', 64, 2);

insert into seedposmapping_index (idx, nm, drawsize, "default", "system") values (7, 'system 128', 128, 1, 1);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 1, 1), (7, 'system 128', 2, 0), (7, 'system 128', 3, 0), (7, 'system 128', 4, 64), (7, 'system 128', 5, 33), (7, 'system 128', 6, 0), (7, 'system 128', 7, 0), (7, 'system 128', 8, 32);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 9, 17), (7, 'system 128', 10, 0), (7, 'system 128', 11, 0), (7, 'system 128', 12, 48), (7, 'system 128', 13, 49), (7, 'system 128', 14, 0), (7, 'system 128', 15, 0), (7, 'system 128', 16, 16);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 17, 9), (7, 'system 128', 18, 0), (7, 'system 128', 19, 0), (7, 'system 128', 20, 56), (7, 'system 128', 21, 41), (7, 'system 128', 22, 0), (7, 'system 128', 23, 0), (7, 'system 128', 24, 24);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 25, 25), (7, 'system 128', 26, 0), (7, 'system 128', 27, 0), (7, 'system 128', 28, 40), (7, 'system 128', 29, 57), (7, 'system 128', 30, 0), (7, 'system 128', 31, 0), (7, 'system 128', 32, 8);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 33, 5), (7, 'system 128', 34, 0), (7, 'system 128', 35, 0), (7, 'system 128', 36, 60), (7, 'system 128', 37, 37), (7, 'system 128', 38, 0), (7, 'system 128', 39, 0), (7, 'system 128', 40, 28);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 41, 21), (7, 'system 128', 42, 0), (7, 'system 128', 43, 0), (7, 'system 128', 44, 44), (7, 'system 128', 45, 53), (7, 'system 128', 46, 0), (7, 'system 128', 47, 0), (7, 'system 128', 48, 12);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 49, 13), (7, 'system 128', 50, 0), (7, 'system 128', 51, 0), (7, 'system 128', 52, 52), (7, 'system 128', 53, 45), (7, 'system 128', 54, 0), (7, 'system 128', 55, 0), (7, 'system 128', 56, 20);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 57, 29), (7, 'system 128', 58, 0), (7, 'system 128', 59, 0), (7, 'system 128', 60, 36), (7, 'system 128', 61, 61), (7, 'system 128', 62, 0), (7, 'system 128', 63, 0), (7, 'system 128', 64, 4);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 65, 3), (7, 'system 128', 66, 0), (7, 'system 128', 67, 0), (7, 'system 128', 68, 62), (7, 'system 128', 69, 35), (7, 'system 128', 70, 0), (7, 'system 128', 71, 0), (7, 'system 128', 72, 30);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 73, 19), (7, 'system 128', 74, 0), (7, 'system 128', 75, 0), (7, 'system 128', 76, 46), (7, 'system 128', 77, 51), (7, 'system 128', 78, 0), (7, 'system 128', 79, 0), (7, 'system 128', 80, 14);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 81, 11), (7, 'system 128', 82, 0), (7, 'system 128', 83, 0), (7, 'system 128', 84, 54), (7, 'system 128', 85, 43), (7, 'system 128', 86, 0), (7, 'system 128', 87, 0), (7, 'system 128', 88, 22);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 89, 27), (7, 'system 128', 90, 0), (7, 'system 128', 91, 0), (7, 'system 128', 92, 38), (7, 'system 128', 93, 59), (7, 'system 128', 94, 0), (7, 'system 128', 95, 0), (7, 'system 128', 96, 6);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 97, 7), (7, 'system 128', 98, 0), (7, 'system 128', 99, 0), (7, 'system 128', 100, 58), (7, 'system 128', 101, 39), (7, 'system 128', 102, 0), (7, 'system 128', 103, 0), (7, 'system 128', 104, 26);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 105, 23), (7, 'system 128', 106, 0), (7, 'system 128', 107, 0), (7, 'system 128', 108, 42), (7, 'system 128', 109, 55), (7, 'system 128', 110, 0), (7, 'system 128', 111, 0), (7, 'system 128', 112, 10);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 113, 15), (7, 'system 128', 114, 0), (7, 'system 128', 115, 0), (7, 'system 128', 116, 50), (7, 'system 128', 117, 47), (7, 'system 128', 118, 0), (7, 'system 128', 119, 0), (7, 'system 128', 120, 18);
insert into seedposmapping (idx, nm, pos, seed) values (7, 'system 128', 121, 31), (7, 'system 128', 122, 0), (7, 'system 128', 123, 0), (7, 'system 128', 124, 34), (7, 'system 128', 125, 63), (7, 'system 128', 126, 0), (7, 'system 128', 127, 0), (7, 'system 128', 128, 2);
