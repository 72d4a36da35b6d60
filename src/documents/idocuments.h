#pragma once

// The text documents of a tournament, for the documents window and for the website's text pages. Every generator
// takes a DocumentContext and its own options, reads the days from livedays (see live_days.h) and returns its
// lines; none opens a window.
#include "documents/country_codes.h"
#include "documents/document_lines.h"
#include "documents/document_options.h"
#include "documents/draw_documents.h"
#include "documents/live_days.h"
#include "documents/name_map.h"
#include "documents/player_list.h"
#include "documents/player_times.h"
#include "documents/results_documents.h"
#include "documents/rr_standings.h"
#include "documents/working_schedule.h"
