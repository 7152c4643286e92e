# standard_jobs.py : prints the jobs of a file and compares what the printer gets of each.
#
#   standard_jobs.py JOBS DIRECTORY QUEUE KELMCTL
#
# DIRECTORY holds document.ps, document.pdf, document.txt and printer.out, to which the printer
# appends. Lines of JOBS:
#   job WHAT                  begins a job
#   queue ARGUMENTS           lpadmin arguments for the queue before the job
#   afterwards ARGUMENTS      and after it
#   other ARGUMENTS           the same for the server's other queue, "other", before the job
#   document ps|pdf|text      what is printed. When not given: ps, except that of several ways in one, in
#                             turn, prints a PDF or a text
#   lp ARGUMENTS              printed by lp with these arguments
#   ipp ATTRIBUTE             an attribute line of ipptool, one each: printed by Print-Job, and
#                             again by Create-Job and Send-Document
#   print-job ATTRIBUTE       the same for Print-Job only
#   create-job ATTRIBUTE      and for Create-Job only
#   NAME=VALUE                a line of the header
#   KEYWORD: VALUE            what the printer finds in userdict, or no value after the colon
#   pages N                   how many pages the PostScript has
# A job with lines for several ways in is printed once by each. In every job, whatever its lines say,
# kelmctl explain compares header and PostScript: they never disagree, and only the header asks for
# copies.
# SPDX-License-Identifier: Apache-2.0
import os
import re
import shlex
import subprocess
import sys
import time

UEL = b"\x1b%-12345X@PJL\n"
WAYS = ("lp", "print-job", "create-job")
FORMATS = {"ps": "ps", "pdf": "pdf", "text": "txt"}
# So many jobs are in the queue at once: cupsd keeps 500.
BATCH = 100


def read_jobs(path):
    jobs = []
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if not line or line.startswith("#"):
            continue
        word, _, rest = line.partition(" ")
        if word == "job":
            jobs.append({"what": rest, "document": None, "ways": {}, "queue": "", "afterwards": "",
                         "other": "",
                         "header": {}, "stored": {}, "pages": None})
        elif word in ("document", "queue", "afterwards", "other"):
            jobs[-1][word] = rest
        elif word == "ipp":
            jobs[-1]["ways"].setdefault("print-job", []).append(rest)
            jobs[-1]["ways"].setdefault("create-job", []).append(rest)
        elif word in WAYS:
            jobs[-1]["ways"].setdefault(word, []).append(rest)
        elif word == "pages":
            jobs[-1]["pages"] = int(rest)
        elif re.match(r"[A-Z0-9]+=", line):
            name, _, value = line.partition("=")
            jobs[-1]["header"][name] = value
        elif word.endswith(":"):
            jobs[-1]["stored"][word[:-1]] = rest
        else:
            sys.exit(f"{path}: what is this? {line}")
    return jobs


# Each job once for every way in. Its output is found by its title.
def submissions(jobs):
    found = []
    turn = 0
    for job in jobs:
        several = len(job["ways"]) > 1
        for number, way in enumerate(each for each in WAYS if each in job["ways"]):
            other = several and number == turn % len(job["ways"])
            form = job["document"] or (("pdf", "text", "text", "pdf")[turn % 4] if other else "ps")
            found.append({"job": job, "way": way, "format": form, "title": f"Job {len(found) + 1}"})
        turn += several
    return found


def ipp_request(operation, title, attributes, document):
    lines = [f"OPERATION {operation}", "GROUP operation-attributes-tag",
             "ATTR charset attributes-charset utf-8", "ATTR language attributes-natural-language en",
             "ATTR uri printer-uri $uri", "ATTR name requesting-user-name miller"]
    if operation == "Send-Document":
        lines += ["ATTR integer job-id $job-id", "ATTR boolean last-document true"]
    else:
        lines += [f'ATTR name job-name "{title}"']
        lines += ["ATTR " + each[len("operation "):] for each in attributes
                  if each.startswith("operation ")]
        lines += ["GROUP job-attributes-tag"]
        lines += ["ATTR " + each for each in attributes if not each.startswith("operation ")]
    if document:
        lines.append(f"FILE {document}")
    lines += ["STATUS successful-ok", "EXPECT job-id"]
    return "{\n" + "\n".join(lines) + "\n}\n"


def submit(each, directory, queue):
    document = os.path.join(directory, "document." + FORMATS[each["format"]])
    lines = each["job"]["ways"][each["way"]]
    if each["way"] == "lp":
        command = ["lp", "-d", queue, "-t", each["title"], *shlex.split(" ".join(lines)), document]
    else:
        if each["way"] == "create-job":
            text = (ipp_request("Create-Job", each["title"], lines, None) +
                    ipp_request("Send-Document", each["title"], [], document))
        else:
            text = ipp_request("Print-Job", each["title"], lines, document)
        path = os.path.join(directory, "request.test")
        open(path, "w", encoding="utf-8").write(text)
        command = ["ipptool", "-t", f"ipp://127.0.0.1/printers/{queue}", path]
    done = subprocess.run(command, capture_output=True, text=True, timeout=60, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"refused: {done.stdout}{done.stderr}")


def wait_for_queue(queue):
    for _ in range(2000):
        left = subprocess.run(["lpstat", "-W", "not-completed", "-o", queue], capture_output=True,
                              text=True, timeout=60, check=False).stdout
        if not left:
            return
        time.sleep(0.3)
    sys.exit("jobs are left in the queue")


# What the printer got since then, by the titles of the jobs.
def streams(directory, before):
    with open(os.path.join(directory, "printer.out"), "rb") as file:
        file.seek(before)
        text = file.read().replace(b"\x04", b"")
    found = {}
    for stream in text.split(UEL)[1:]:
        name = re.search(rb"^@PJL SET JOBNAME=([0-9A-F]+)$", stream, re.M)
        title = bytes.fromhex(name.group(1).decode()).decode("utf-8", "replace") if name else ""
        found.setdefault(title, []).append(UEL + stream)
    return found


def facts(stream):
    head, _, postscript = stream.decode("utf-8", "replace").partition(
        "@PJL ENTER LANGUAGE=POSTSCRIPT\n")
    header = dict(re.findall(r"^@PJL SET ([A-Z0-9]+)=(.*)$", head, re.M))
    # The operand is a string, or a number that the code makes a string of.
    stored = {key: text or number for text, number, key in re.findall(
        r"^(?:\((.*)\)|(-?\d+)\n20 string cvs) userdict exch /(QV\w+) exch put$", postscript, re.M)}
    return header, stored, postscript


def disagreements(kelmctl, stream):
    """What kelmctl finds wrong with header and PostScript."""
    done = subprocess.run([kelmctl, "explain", "--stream", "-"], input=stream, capture_output=True,
                          timeout=60, check=False)
    found = re.findall(r"^WRONG (.*)$", done.stdout.decode("utf-8"), re.M)
    if done.returncode != (1 if found else 0) or not done.stdout:
        found.append(f"kelmctl explain: status {done.returncode}, {done.stderr.decode()}")
    return found


def check(each, found, kelmctl):
    job = each["job"]
    if len(found) != 1:
        return [f"printed {len(found)} times"]
    header, stored, postscript = facts(found[0])
    wrong = disagreements(kelmctl, found[0])
    for name, value in job["header"].items():
        if header.get(name) != value:
            wrong.append(f"{name}={header.get(name)}, not {value}")
    for keyword, value in job["stored"].items():
        if stored.get(keyword) != value:
            wrong.append(f"{keyword}: {stored.get(keyword)}, not {value}")
    pages = len(re.findall(r"^%%Page: ", postscript, re.M))
    if job["pages"] is not None and pages != job["pages"]:
        wrong.append(f"{pages} pages, not {job['pages']}")
    return wrong


def change_queue(queue, arguments):
    if arguments:
        subprocess.run(["lpadmin", "-p", queue, *shlex.split(arguments)], timeout=60, check=True,
                       stderr=subprocess.DEVNULL)


# A job that changes the queue is alone in it.
def batches(all_submissions):
    batch = []
    for each in all_submissions:
        alone = any(each["job"][word] for word in ("queue", "afterwards", "other"))
        if batch and (alone or len(batch) == BATCH):
            yield batch
            batch = []
        batch.append(each)
        if alone:
            yield batch
            batch = []
    if batch:
        yield batch


def print_batch(batch, directory, queue, kelmctl):
    output = os.path.join(directory, "printer.out")
    before = os.path.getsize(output)
    refused = {}
    change_queue("other", batch[0]["job"]["other"])
    change_queue(queue, batch[0]["job"]["queue"])
    for each in batch:
        try:
            submit(each, directory, queue)
        except RuntimeError as error:
            refused[each["title"]] = [str(error)]
    wait_for_queue(queue)
    change_queue(queue, batch[0]["job"]["afterwards"])
    found = streams(directory, before)
    wrong = 0
    for each in batch:
        problems = refused.get(each["title"]) or check(each, found.get(each["title"], []), kelmctl)
        for problem in problems:
            print(f"{each['job']['what']} ({each['way']}, {each['format']}): {problem}",
                  file=sys.stderr)
        wrong += bool(problems)
    return wrong


def main():
    jobs_file, directory, queue, kelmctl = sys.argv[1:]
    every = submissions(read_jobs(jobs_file))
    wrong = sum(print_batch(batch, directory, queue, kelmctl) for batch in batches(every))
    print(f"{len(every)} jobs, in each of which header and PostScript were compared; {wrong} wrong")
    return wrong != 0


if __name__ == "__main__":
    sys.exit(main())
