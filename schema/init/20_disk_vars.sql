-- Default rows of the installation's settings. The program adds no rows: a missing row reads as "0"
-- and cannot be written, so every key the program reads or writes has its row here.
--
-- Colours are decimal numbers in text, in the Windows BGR layout of VB's RGB(): value = R + 256*G + 65536*B.
-- Player filters: source^id^male^female^reserves^non-reserve^players^teams^order (source 1 all players).
-- Event filters: singles/doubles^sex^type^draw done^entries^order, "*" meaning no restriction.
-- Empty urls fall back to the program's built-in pages.

-- General.
insert into disk_vars(nm,value,note) values ('default_domain','','');
insert into disk_vars(nm,value,note) values ('include_next_round_pointers','0','');
insert into disk_vars(nm,value,note) values ('qv5_load_pull_tname','1','');
insert into disk_vars(nm,value,note) values ('qv6_export_include_prompts','0','');
insert into disk_vars(nm,value,note) values ('store_peek_qv5','0','');
insert into disk_vars(nm,value,note) values ('open_last_db_on_start','1','');
insert into disk_vars(nm,value,note) values ('help_url','','');
insert into disk_vars(nm,value,note) values ('signup_url','','');
insert into disk_vars(nm,value,note) values ('homepage_url','','');
insert into disk_vars(nm,value,note) values ('double_click_auto_scroll','1','');
insert into disk_vars(nm,value,note) values ('hold_refresh_on_add_result','0','');

-- Website file name words: "1" or "0", two of a pair never both "1".
insert into disk_vars(nm,value,note) values ('entries_online','1','');
insert into disk_vars(nm,value,note) values ('entries_make','0','');
insert into disk_vars(nm,value,note) values ('players_online','1','');
insert into disk_vars(nm,value,note) values ('players_make','0','');
insert into disk_vars(nm,value,note) values ('alias_page','1','');
insert into disk_vars(nm,value,note) values ('alias_pages','0','');

-- Hold full refresh of lists.
insert into disk_vars(nm,value,note) values ('assistant_list4_hfr','0','');
insert into disk_vars(nm,value,note) values ('assistant_list3_hfr','0','');
insert into disk_vars(nm,value,note) values ('schedule_hfr_upper','0','');
insert into disk_vars(nm,value,note) values ('cb_hfr_upper','0','');
insert into disk_vars(nm,value,note) values ('schedule_hfr_lower','0','');
insert into disk_vars(nm,value,note) values ('payments_hfr','0','');

-- Behaviour and colours.
insert into disk_vars(nm,value,note) values ('on_file_save','0','');
insert into disk_vars(nm,value,note) values ('force_draw_ignore_seeding','0','');
insert into disk_vars(nm,value,note) values ('refresh_ac_on_do_draw','1','');
insert into disk_vars(nm,value,note) values ('match_counts_color','16769216',''); -- light blue RGB(192,224,255)
insert into disk_vars(nm,value,note) values ('default_draw_type','0','');
insert into disk_vars(nm,value,note) values ('colors_textcolor','0',''); -- black
insert into disk_vars(nm,value,note) values ('colors_backcolor','16777215',''); -- white RGB(255,255,255)
insert into disk_vars(nm,value,note) values ('current_marker_color','49152',''); -- green RGB(0,192,0)
insert into disk_vars(nm,value,note) values ('footprint_color','49151',''); -- amber RGB(255,191,0)
insert into disk_vars(nm,value,note) values ('ko_score_highlite_color','12648447',''); -- pale yellow RGB(255,255,192)
insert into disk_vars(nm,value,note) values ('resolve_autocomplete','1','');
insert into disk_vars(nm,value,note) values ('folders_beep_ok','1','');
insert into disk_vars(nm,value,note) values ('website_explicit','0','');
insert into disk_vars(nm,value,note) values ('imaxdays','0','');
insert into disk_vars(nm,value,note) values ('imaxcid','0','');
insert into disk_vars(nm,value,note) values ('players_beep_ok','1','');
insert into disk_vars(nm,value,note) values ('events_beep_ok','1','');

-- Orders of player match lists.
insert into disk_vars(nm,value,note) values ('player_matches_order_by','day,time','');
insert into disk_vars(nm,value,note) values ('player_matches_order_by_asc_desc','asc','');
insert into disk_vars(nm,value,note) values ('k_player_matches_order_by_asc_desc','asc','');
insert into disk_vars(nm,value,note) values ('k_player_matches_order_by','day,time','');

-- Filters.
insert into disk_vars(nm,value,note) values ('players_addtoevent_filter','1^0^1^1^1^1^1^1^order by player','');
insert into disk_vars(nm,value,note) values ('folders_addtoevent_filter','1^0^1^1^1^1^1^1^order by player','');
insert into disk_vars(nm,value,note) values ('events_addtoevent_filter','*^*^*^*^*^event number','');
insert into disk_vars(nm,value,note) values ('targetevents_addtoevent_filter','*^*^*^*^*^event number','');
insert into disk_vars(nm,value,note) values ('admin_events_manage_filter','*^*^*^*^*^event number','');
insert into disk_vars(nm,value,note) values ('draw_events_filter','*^*^*^*^*^event number','');
insert into disk_vars(nm,value,note) values ('players_import_export_filter','1^0^1^1^1^1^1^1^order by player','');
insert into disk_vars(nm,value,note) values ('players_folders_assign_filter','1^0^1^1^1^1^1^1^order by player','');
insert into disk_vars(nm,value,note) values ('players_delete_filter','1^0^1^1^1^1^1^1^order by player','');

-- Documents counters and lists: xtime 2 keeps all times; live and unfinished shown, dead not.
insert into disk_vars(nm,value,note) values ('idocs_xtime','2','');
insert into disk_vars(nm,value,note) values ('idocs_unf_top','1','');
insert into disk_vars(nm,value,note) values ('idocs_live_top','1','');
insert into disk_vars(nm,value,note) values ('idocs_dead_top','0','');
insert into disk_vars(nm,value,note) values ('lists_include','0','');
insert into disk_vars(nm,value,note) values ('lists_noday','0','');
insert into disk_vars(nm,value,note) values ('lists_desc','0','');

-- Events and player details.
insert into disk_vars(nm,value,note) values ('admin_events_delete_no_prompt','0','');
insert into disk_vars(nm,value,note) values ('evt.checkerror','1','');
insert into disk_vars(nm,value,note) values ('pdetails_tab','0','');

-- Payments: all three states shown, compiled from the draws, sorted by player.
insert into disk_vars(nm,value,note) values ('payments.pif','1','');
insert into disk_vars(nm,value,note) values ('payments.ob','1','');
insert into disk_vars(nm,value,note) values ('payments.neg','1','');
insert into disk_vars(nm,value,note) values ('payments.opt','1','');
insert into disk_vars(nm,value,note) values ('payments.sort1','0','');
insert into disk_vars(nm,value,note) values ('payments.sort2','3','');

-- Schedule board.
insert into disk_vars(nm,value,note) values ('schedule.empty_top','1','');
insert into disk_vars(nm,value,note) values ('schedule.live_top','1','');
insert into disk_vars(nm,value,note) values ('schedule.unf_top','1','');
insert into disk_vars(nm,value,note) values ('schedule.dead_top','0','');
insert into disk_vars(nm,value,note) values ('schedule.empty_top_cb','1','');
insert into disk_vars(nm,value,note) values ('schedule.live_top_cb','1','');
insert into disk_vars(nm,value,note) values ('schedule.unf_top_cb','1','');
insert into disk_vars(nm,value,note) values ('schedule.dead_top_cb','1','');
insert into disk_vars(nm,value,note) values ('schedule.empty_bottom','1','');
insert into disk_vars(nm,value,note) values ('schedule.live_bottom','1','');
insert into disk_vars(nm,value,note) values ('schedule.unf_bottom','1','');
insert into disk_vars(nm,value,note) values ('schedule.dead_bottom','1','');
insert into disk_vars(nm,value,note) values ('schedule.key','1','');
insert into disk_vars(nm,value,note) values ('schedule.tcm','0','');
insert into disk_vars(nm,value,note) values ('schedule.avgmatchtime','60','');

-- Online administration ticks (29 and 30 do not exist).
insert into disk_vars(nm,value,note) values ('ca.check1','0','');
insert into disk_vars(nm,value,note) values ('ca.check2','0','');
insert into disk_vars(nm,value,note) values ('ca.check3','0','');
insert into disk_vars(nm,value,note) values ('ca.check4','0','');
insert into disk_vars(nm,value,note) values ('ca.check5','0','');
insert into disk_vars(nm,value,note) values ('ca.check6','0','');
insert into disk_vars(nm,value,note) values ('ca.check7','0','');
insert into disk_vars(nm,value,note) values ('ca.check8','0','');
insert into disk_vars(nm,value,note) values ('ca.check9','0','');
insert into disk_vars(nm,value,note) values ('ca.check10','0','');
insert into disk_vars(nm,value,note) values ('ca.check11','0','');
insert into disk_vars(nm,value,note) values ('ca.check12','0','');
insert into disk_vars(nm,value,note) values ('ca.check13','0','');
insert into disk_vars(nm,value,note) values ('ca.check14','0','');
insert into disk_vars(nm,value,note) values ('ca.check15','0','');
insert into disk_vars(nm,value,note) values ('ca.check16','0','');
insert into disk_vars(nm,value,note) values ('ca.check17','0','');
insert into disk_vars(nm,value,note) values ('ca.check18','0','');
insert into disk_vars(nm,value,note) values ('ca.check19','0','');
insert into disk_vars(nm,value,note) values ('ca.check20','0','');
insert into disk_vars(nm,value,note) values ('ca.check21','0','');
insert into disk_vars(nm,value,note) values ('ca.check22','0','');
insert into disk_vars(nm,value,note) values ('ca.check23','0','');
insert into disk_vars(nm,value,note) values ('ca.check24','0','');
insert into disk_vars(nm,value,note) values ('ca.check25','0','');
insert into disk_vars(nm,value,note) values ('ca.check26','0','');
insert into disk_vars(nm,value,note) values ('ca.check27','0','');
insert into disk_vars(nm,value,note) values ('ca.check28','0','');
insert into disk_vars(nm,value,note) values ('ca.check31','0','');
insert into disk_vars(nm,value,note) values ('ca.check32','0','');
insert into disk_vars(nm,value,note) values ('ca.check33','0','');

-- Documents ticks: short scores and seeds shown.
insert into disk_vars(nm,value,note) values ('idocs.empty_bottom','0','');
insert into disk_vars(nm,value,note) values ('idocs.live_bottom','1','');
insert into disk_vars(nm,value,note) values ('idocs.unf_bottom','1','');
insert into disk_vars(nm,value,note) values ('idocs.dead_bottom','0','');
insert into disk_vars(nm,value,note) values ('idocs.check1','0','');
insert into disk_vars(nm,value,note) values ('idocs.check2','1','');
insert into disk_vars(nm,value,note) values ('idocs.check3','0','');
insert into disk_vars(nm,value,note) values ('idocs.check4','1','');
insert into disk_vars(nm,value,note) values ('idocs.check5','0','');
insert into disk_vars(nm,value,note) values ('idocs.check7','0','');
insert into disk_vars(nm,value,note) values ('idocs.check8','1','');
insert into disk_vars(nm,value,note) values ('idocs.check9','0','');
insert into disk_vars(nm,value,note) values ('idocs.check10','0','');
insert into disk_vars(nm,value,note) values ('idocs.check11','0','');
insert into disk_vars(nm,value,note) values ('idocs.check12','1','');
insert into disk_vars(nm,value,note) values ('idocs.check13','0','');
insert into disk_vars(nm,value,note) values ('idocs.check14','0','');
insert into disk_vars(nm,value,note) values ('idocs.check15','0','');
insert into disk_vars(nm,value,note) values ('idocs.check16','0','');
insert into disk_vars(nm,value,note) values ('idocs_results_style','results by event','');

-- Draw window.
insert into disk_vars(nm,value,note) values ('draw.imatch_handle_state','0','');
insert into disk_vars(nm,value,note) values ('draw.isplit128','0','');
insert into disk_vars(nm,value,note) values ('draw.byes_thru_on_do_draw','1','');
insert into disk_vars(nm,value,note) values ('draw.itimesonimage','0','');
insert into disk_vars(nm,value,note) values ('draw.icc','1','');
insert into disk_vars(nm,value,note) values ('draw.ihilightscorebox','1','');
insert into disk_vars(nm,value,note) values ('draw.iautosavechanges','0','');
insert into disk_vars(nm,value,note) values ('draw.isaveasugo','0','');

-- Print and save: split128, country, times.
insert into disk_vars(nm,value,note) values ('psd.check1','0','');
insert into disk_vars(nm,value,note) values ('psd.check2','1',''); -- country column on, as in the draw window
insert into disk_vars(nm,value,note) values ('psd.check3','0','');

-- Application: the sports words of tennis.
insert into disk_vars(nm,value,note) values ('app.generic_c','c','');
insert into disk_vars(nm,value,note) values ('app.generic_m','m','');
insert into disk_vars(nm,value,note) values ('app.generic_match','match','');
insert into disk_vars(nm,value,note) values ('app.generic_court','court','');
insert into disk_vars(nm,value,note) values ('app.generic_courts','courts','');
insert into disk_vars(nm,value,note) values ('app.generic_matches','matches','');
insert into disk_vars(nm,value,note) values ('app.text_left','2','');
insert into disk_vars(nm,value,note) values ('app.text_top','2','');
insert into disk_vars(nm,value,note) values ('app.admin_lines','1','');
insert into disk_vars(nm,value,note) values ('app.screenscrape','','');
insert into disk_vars(nm,value,note) values ('app.draw_order_by','eid','');
insert into disk_vars(nm,value,note) values ('app.ftp_website_url','','');
insert into disk_vars(nm,value,note) values ('app.custid','','');
insert into disk_vars(nm,value,note) values ('app.password','','');
insert into disk_vars(nm,value,note) values ('app.servlet','','');
insert into disk_vars(nm,value,note) values ('app.last_dir_opened','','');
insert into disk_vars(nm,value,note) values ('app.last_db_opened','','');
insert into disk_vars(nm,value,note) values ('app.ftp_timeout','30','');
insert into disk_vars(nm,value,note) values ('app.usefootprint','1','');
insert into disk_vars(nm,value,note) values ('app.fillrrvoids','1','');
-- The tournament files opened last, newest first, joined by "|" (the start page lists them).
insert into disk_vars(nm,value,note) values ('app.recent_files','','');

-- Clear data.
insert into disk_vars(nm,value,note) values ('cdata_1','0','');
insert into disk_vars(nm,value,note) values ('cdata_2','0','');
insert into disk_vars(nm,value,note) values ('cdata_3','0','');
insert into disk_vars(nm,value,note) values ('cdata_4','0','');
insert into disk_vars(nm,value,note) values ('cdata_5','0','');

-- Bird's-eye view, visual schedule, other matches.
insert into disk_vars(nm,value,note) values ('be.empty_top_birdseye','1','');
insert into disk_vars(nm,value,note) values ('be.live_top_birdseye','1','');
insert into disk_vars(nm,value,note) values ('be.unf_top_birdseye','1','');
insert into disk_vars(nm,value,note) values ('be.dead_top_birdseye','1','');
insert into disk_vars(nm,value,note) values ('visual.empty','1','');
insert into disk_vars(nm,value,note) values ('visual.live','1','');
insert into disk_vars(nm,value,note) values ('visual.unf','1','');
insert into disk_vars(nm,value,note) values ('visual.dead','1','');
insert into disk_vars(nm,value,note) values ('om.dead_top_othermatches','1','');
insert into disk_vars(nm,value,note) values ('om.live_top_othermatches','1','');
insert into disk_vars(nm,value,note) values ('om.unf_top_othermatches','1','');

-- Time conflicts and load: start at 09:00 "nb ", an hour a match.
insert into disk_vars(nm,value,note) values ('tc.tcmins','60','');
insert into disk_vars(nm,value,note) values ('dl.nbat','0','');
insert into disk_vars(nm,value,note) values ('dl.hrs','9','');
insert into disk_vars(nm,value,note) values ('dl.mins','0','');
insert into disk_vars(nm,value,note) values ('dl.minsadd','60','');
insert into disk_vars(nm,value,note) values ('dl.check1','0','');

-- Result window.
insert into disk_vars(nm,value,note) values ('addres.close_on_sid_sis','0','');
insert into disk_vars(nm,value,note) values ('addres.onsave','0','');

-- Known to the program but not read at boot: they start empty in each session until first written.
insert into disk_vars(nm,value,note) values ('schedule.filter_bottom','','');
insert into disk_vars(nm,value,note) values ('schedule.cnts','','');
