// Loads a TODS export into tods-competition-factory and compares what the factory reads back with the tournament
// file it came from: participants, the winner and score of every match, the court, day and time of placed
// matches, and the draw positions of the seeds.
//   node check.cjs <export.json> <tournament.qvd>
// The exit status is 1 when anything differs.
'use strict';
const fs = require('fs');
const { execFileSync } = require('child_process');
const factory = require('tods-competition-factory');
const { tournamentEngine } = factory;

const [jsonFile, qvdFile] = process.argv.slice(2);
const sql = (query) => JSON.parse(execFileSync('sqlite3', ['-json', '-readonly', qvdFile, query]).toString() || '[]');
const key = (name) => String(name ?? '').trim().toLowerCase();
// Scores are compared by their digits and brackets: "6-4 7-6(5)" and "64 76(5)" are the same score.
const scoreKey = (text) => String(text ?? '').replace(/[\s\-/]/g, '');

let faults = 0;
const fault = (text) => {
  faults += 1;
  console.log('DIFFERS: ' + text);
};

const loaded = tournamentEngine.setState(JSON.parse(fs.readFileSync(jsonFile, 'utf8')));
if (loaded.error) {
  console.log('factory refused the file: ' + JSON.stringify(loaded.error));
  process.exit(1);
}
const path = require('path');
const packageFile = path.join(path.dirname(require.resolve('tods-competition-factory')), '..', 'package.json');
const version = JSON.parse(fs.readFileSync(packageFile, 'utf8')).version;
console.log(`tods-competition-factory ${version} read ${jsonFile}`);

// Participants: every player of the register and every doubles team.
const participants = (tournamentEngine.getParticipants?.() ?? tournamentEngine.getTournamentParticipants()).participants;
const readNames = new Set(participants.map((p) => key(p.participantName)));
const fileNames = new Set([
  ...sql("select player from players where pval=1").map((r) => key(r.player)),
  ...sql("select player from evententries where sd='doubles'").map((r) => key(r.player)),
]);
for (const name of fileNames) if (!readNames.has(name)) fault(`participant ${name} missing`);
for (const name of readNames) if (!fileNames.has(name)) fault(`participant ${name} not in the file`);
const pairs = participants.filter((p) => p.participantType === 'PAIR');
for (const pair of pairs) {
  const names = pair.individualParticipantIds.map((id) => participants.find((p) => p.participantId === id)?.participantName);
  if (key(names.join('/')) !== key(pair.participantName)) fault(`pair ${pair.participantName} is ${names.join('/')}`);
}
console.log(`participants: ${readNames.size} read, ${fileNames.size} in the file (${pairs.length} pairs)`);

// Matches: winner, score and place.
const matchUps = new Map(tournamentEngine.allTournamentMatchUps().matchUps.map((m) => [m.matchUpId, m]));
const courtNames = new Map(
  sql("select cid, courtname from scheduledays_courts where cid>0 order by cid, idx").reverse().map((r) => [r.cid, r.courtname || `court ${r.cid}`]),
);
const rows = sql(`select s.sid, s.eid, s.rid, s.mt, s.mtttt, s.mbttt, s.mwttt, s.matchscore, s.match_state, s.cid,
  s.matchtime, s.scheduledate, s.mtseeding, s.mbseeding, e.drawtype from schedule s join events e on e.eid=s.eid
  where s.rname<>'winner' order by s.sid`);
let winners = 0, scores = 0, placed = 0;
for (const row of rows) {
  const m = matchUps.get(`M-${row.sid}`);
  if (!m) {
    fault(`match ${row.sid} missing`);
    continue;
  }
  if (row.mwttt) {
    const side = m.sides?.find((s) => s.sideNumber === m.winningSide);
    if (key(side?.participant?.participantName) !== key(row.mwttt))
      fault(`match ${row.sid}: winner ${side?.participant?.participantName} for ${row.mwttt}`);
    else winners += 1;
    const score = m.winningSide === 2 ? m.score?.scoreStringSide2 : m.score?.scoreStringSide1;
    if (scoreKey(score) !== scoreKey(row.matchscore)) fault(`match ${row.sid}: score ${score} for ${row.matchscore}`);
    else scores += 1;
  } else if (m.winningSide) fault(`match ${row.sid}: a winner the file does not have`);
  if (row.cid > 0) {
    const s = m.schedule ?? {};
    const time = String(s.scheduledTime ?? '').slice(-5);
    if (s.courtName !== courtNames.get(row.cid) || time !== row.matchtime)
      fault(`match ${row.sid}: placed ${s.courtName} ${time} for ${courtNames.get(row.cid)} ${row.matchtime}`);
    else placed += 1;
  }
}
console.log(`matches: ${rows.length} in the file, ${matchUps.size} read; ${winners} winners, ${scores} scores and ${placed} places agree`);

// Seeds: each seeded first-round line of a knock-out holds the seeded participant at that draw position.
let seeds = 0;
for (const row of rows.filter((r) => r.drawtype === 'ko' && r.rid === 1)) {
  const m = matchUps.get(`M-${row.sid}`);
  const line = Number(String(row.mt).split('.')[1]);
  for (const [offset, seed, name] of [[0, row.mtseeding, row.mtttt], [1, row.mbseeding, row.mbttt]]) {
    if (!(Number(seed) > 0)) continue;
    const side = m?.sides?.find((s) => s.drawPosition === line + offset);
    if (Number(side?.seedValue) !== Number(seed) || key(side?.participant?.participantName) !== key(name))
      fault(`seed ${seed} ${name} at ${line + offset}: read ${side?.seedValue} ${side?.participant?.participantName}`);
    else seeds += 1;
  }
}
console.log(`seeds: ${seeds} at their draw positions`);
console.log(faults ? `${faults} differences` : 'everything read back agrees with the tournament file');
process.exit(faults ? 1 : 0);
