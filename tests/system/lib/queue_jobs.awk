# queue_jobs.awk : makes the jobs to print, and what the printer must get for each.
#
#   awk -v from=tests/system/queue -v cases=tests/cases -v to=DIRECTORY -f queue_jobs.awk
#
# For each job N it writes the files N.name (what it is), N.env, N.arguments (one argument of lp per line),
# N.header (the header), N.sections (one feature section per line: the opening comment without
# "%%BeginFeature: ", then the section's lines, each after a "|") and N.findings (what kelmctl explain finds
# wrong).
# SPDX-License-Identifier: Apache-2.0
BEGIN {
  load("plain")
  load("dialog")
  read_choices(from "/choices.txt")
  read_jobs(from "/jobs.txt")
  if (status) exit status
  for (job = 1; job <= jobs; ++job) write(job)
}

function fail(text) {
  print "queue_jobs.awk: " text > "/dev/stderr"
  status = 1
  exit 1
}

# The header and the sections of a job without options, of either kind: the golden cases' base header and
# the PPD's default sections, with the changes for this kind of job in this queue. The first line of the
# header, the UEL, is left out: it separates the jobs in the printer's input.
function load(base,    line, file) {
  file = cases "/" base ".pjl"
  getline line < file
  while ((getline line < file) > 0) header[base, ++headers[base]] = line
  file = from "/default.sections"
  while ((getline line < file) > 0) section[base, ++sections[base]] = line
  close(file)
  file = from "/" base ".changes"
  while ((getline line < file) > 0) base_change[base, ++base_changes[base]] = line
}

function keyword_of(text) {
  sub(/^\*(Custom)?/, "", text)
  sub(/[ |].*/, "", text)
  return text
}

function new_job(number, name) {
  if (number > jobs) jobs = number
  if (!(number in names)) names[number] = name
  if (!(number in base_of)) base_of[number] = "plain"
}

function argument(job, text) { arguments[job, ++arguments_of[job]] = text }
function change(job, text) { changes[job, ++changes_of[job]] = text }

# An option that is in several lines of choices.txt is given once.
function option(job, text) {
  if ((job, text) in given) return
  given[job, text] = 1
  argument(job, "-o")
  argument(job, text)
}

function stored(keyword, value) { return "(" value ") userdict exch /" keyword " exch put" }

function read_choices(file,    line, word, count, i) {
  while ((getline line < file) > 0) {
    if (line ~ /^#/ || line == "") continue
    count = split(line, word, " ")
    if (word[1] == "paper") paper(word)
    else for (i = 4; i <= count; ++i) if (word[i] != "-") choice(i - 3, word[1], word[2], word[3], word[i])
  }
}

function choice(job, keyword, variable, rule, text,    name, value) {
  new_job(job, "choice " job " of each option")
  name = text
  sub(/=.*/, "", name)
  value = substr(text, length(name) + 2)
  option(job, keyword "=" name)
  if (variable != "-") change(job, variable "=" value)
  if (rule == "name") change(job, "*" keyword " " name "|" stored(keyword, name))
  else if (rule == "value") change(job, "*" keyword " " name "|" stored(keyword, value))
  else if (rule == "gone") change(job, "*" keyword " " name)
  else if (rule == "face") {
    value = value == "FACEUP" ? "FaceUp" : "FaceDown"
    change(job, "*QVOutputFace " value "|" stored("QVOutputFace", value))
  }
  else if (rule ~ /^=/) change(job, "*" keyword " " name "|" stored(keyword, substr(rule, 2)))
  else if (rule != "same") fail("unknown rule " rule)
}

# Each paper is the medium of one job, and the output paper of the next job.
function paper(word,    job) {
  job = 2 * papers++ + 1
  new_job(job, "medium " word[2])
  option(job, "media=" word[2])
  option(job, "QVTargetPaperSize=SameAsOriginal")
  change(job, "QVPAGESIZE=" word[3])
  change(job, "QVPAGESIZEWIDTH=" word[4])
  change(job, "QVPAGESIZEHEIGHT=" word[5])
  change(job, "*PageSize " word[2] "|<</PageSize [" word[6] " " word[7] "] /ImagingBBox null>> setpagedevice")
  size(job, word)
  job++
  new_job(job, "output paper " word[2])
  option(job, "QVTargetPaperSize=" word[2])
  change(job, "PAPER=" word[3])
  change(job, "*QVTargetPaperSize " word[2] "|" stored("QVTargetPaperSize", word[2]))
  size(job, word)
}

function size(job, word) {
  change(job, "QVTARGETPAPERSIZEWIDTH=" word[4])
  change(job, "QVTARGETPAPERSIZEHEIGHT=" word[5])
  change(job, "*QVTargetPaperSizeWidth Auto|" stored("QVTargetPaperSizeWidth", word[4]))
  change(job, "*QVTargetPaperSizeHeight Auto|" stored("QVTargetPaperSizeHeight", word[5]))
}

function read_jobs(file,    line) {
  while ((getline line < file) > 0) {
    if (line ~ /^#/ || line == "") continue
    if (line ~ /^job /) new_job(jobs + 1, substr(line, 5))
    else if (line ~ /^base /) base_of[jobs] = substr(line, 6)
    else if (line ~ /^env /) env[jobs] = substr(line, 5)
    else if (line ~ /^WRONG /) findings[jobs] = findings[jobs] line "\n"
    else if (line ~ /^-/) {
      argument(jobs, substr(line, 1, 2))
      argument(jobs, substr(line, 4))
    }
    else change(jobs, line)
  }
}

# NAME=VALUE replaces the line of NAME, OLD>NAME=VALUE the line of OLD; OLD+NAME=VALUE adds a line after OLD.
function change_header(job, text,    at, old, new, count) {
  match(text, /^[A-Z0-9_]+/)
  old = substr(text, 1, RLENGTH)
  new = "@PJL SET " (text ~ /^[A-Z0-9_]+=/ ? text : substr(text, RLENGTH + 2))
  for (at = 1; at <= headers[base_of[job]]; ++at) {
    if (index(out[at], "@PJL SET " old "=") != 1) continue
    out[at] = text ~ /^[A-Z0-9_]+\+/ ? out[at] "\n" new : new
    ++count
  }
  if (count != 1) fail("job " job " (" names[job] "): no line " old)
}

function change_section(job, text,    at, count) {
  for (at = 1; at <= sections[base_of[job]]; ++at) {
    if (keyword_of(out_section[at]) != keyword_of(text)) continue
    out_section[at] = text
    ++count
  }
  if (count != 1) fail("job " job " (" names[job] "): queue/default.sections has no section " keyword_of(text))
}

function apply(job, text) {
  if (text ~ /^\*/) change_section(job, text)
  else change_header(job, text)
}

function write(job,    base, i, file) {
  base = base_of[job]
  for (i = 1; i <= headers[base]; ++i) out[i] = header[base, i]
  for (i = 1; i <= sections[base]; ++i) out_section[i] = section[base, i]
  for (i = 1; i <= base_changes[base]; ++i) apply(job, base_change[base, i])
  for (i = 1; i <= changes_of[job]; ++i) apply(job, changes[job, i])
  file = to "/" job
  print names[job] > (file ".name")
  print env[job] > (file ".env")
  printf "%s", findings[job] > (file ".findings")
  for (i = 1; i <= headers[base]; ++i) print out[i] > (file ".header")
  for (i = 1; i <= sections[base]; ++i) print out_section[i] > (file ".sections")
  for (i = 1; i <= arguments_of[job]; ++i) print arguments[job, i] > (file ".arguments")
  close(file ".name"); close(file ".env"); close(file ".header"); close(file ".sections")
  close(file ".arguments"); close(file ".findings")
}
