# standard_jobs.py : prints the jobs in a file and checks what the printer gets.
#
#   standard_jobs.py JOBS DIRECTORY STREAM_PROBLEMS QUEUE...
#
# DIRECTORY holds the documents, and for each queue the file QUEUE.out, to which its printer appends. The
# queues have the same settings and print at the same time. Lines of JOBS:
#   job WHAT                  begins a job
#   queue ARGUMENTS           lpadmin arguments for the queue before the job; such a job is printed alone, by
#                             the first queue
#   afterwards ARGUMENTS      the same after the job
#   other ARGUMENTS           lpadmin arguments for another queue of the server, "other", before the job
#   document NAME...          the documents to print, each by every way of submission: names in DOCUMENTS
#                             (default: ps)
#   lp ARGUMENTS              submitted by lp with these arguments
#   ipp ATTRIBUTE             an attribute line of ipptool: submitted by Print-Job, and again by Create-Job
#                             and Send-Document
#   print-job ATTRIBUTE       the same for Print-Job only
#   create-job ATTRIBUTE      the same for Create-Job only
#   NAME=VALUE                a line of the header
#   KEYWORD: VALUE            what the printer finds in userdict; without VALUE, an empty text
#   pages N                   the number of pages in the PostScript
#   alone                     by IPP, too, the job is printed without others
# A job with lines for several ways of submission is printed by each. By IPP, jobs that choose different things and
# expect nothing that differs are printed as one, which has the attributes of all of them. Whatever the lines of a
# job say, its header and PostScript must not disagree, and only the header may ask for copies: the program
# STREAM_PROBLEMS, which reads streams as kelmctl explain does, must find nothing wrong.
# SPDX-License-Identifier: Apache-2.0
import os
import re
import shlex
import sys
import time
from concurrent.futures import ThreadPoolExecutor

from case_files import read_cases, report, run

UEL = b"\x1b%-12345X@PJL\n"
WAYS = ("lp", "print-job", "create-job")
# Most documents have two pages: for a single page, CUPS switches Duplex off.
DOCUMENTS = {"ps": "document.ps", "pdf": "document.pdf", "text": "document.txt",
             "one-page-ps": "one_page.ps", "one-page-pdf": "one_page.pdf", "one-page-text": "one_page.txt",
             "photo": "photo.jpg", "urf": "document.urf"}
# The number of jobs that are in the queues at the same time. cupsd keeps 500.
BATCH = 200


def new_job(what):
    return {"what": what, "documents": ["ps"], "ways": {}, "queue": "", "afterwards": "", "other": "",
            "header": {}, "stored": {}, "pages": None, "alone": False}


def add_line(job, word, rest, line):
    if word in ("queue", "afterwards", "other"):
        job[word] = rest
    elif word == "document" and all(name in DOCUMENTS for name in rest.split()):
        job["documents"] = rest.split()
    elif word == "ipp":
        job["ways"].setdefault("print-job", []).append(rest)
        job["ways"].setdefault("create-job", []).append(rest)
    elif word in WAYS:
        job["ways"].setdefault(word, []).append(rest)
    elif word == "pages":
        job["pages"] = int(rest)
    elif line == "alone":
        job["alone"] = True
    elif re.match(r"[A-Z0-9]+=", line):
        name, _, value = line.partition("=")
        job["header"][name] = value
    elif word.endswith(":"):
        job["stored"][word[:-1]] = rest
    else:
        return False
    return True


def read_jobs(path):
    return read_cases(path, "job", new_job, add_line)


def changes_queue(job):
    return any(job[word] for word in ("queue", "afterwards", "other"))


# An attribute line: "operation TYPE NAME VALUE", "TYPE NAME VALUE", "collection NAME {...}". What is in "media"
# can also be in the parts of "media-col".
def attribute_names(job, way):
    names = {line.removeprefix("operation ").split()[1] for line in job["ways"][way]}
    return {"media" if name == "media-col" else name for name in names}


def expectations(job):
    pages = {} if job["pages"] is None else {"pages": job["pages"]}
    return {**job["header"], **job["stored"], **pages}


def fit_together(first, second, way):
    expected, others = expectations(first), expectations(second)
    return (not attribute_names(first, way) & attribute_names(second, way) and
            all(expected[name] == others[name] for name in expected.keys() & others.keys()))


def groups(jobs, way):
    """The jobs in groups that are printed as one."""
    found = []
    for job in jobs:
        alone = way == "lp" or job["alone"] or changes_queue(job)
        fitting = [] if alone else [
            group for can_grow, group in found if can_grow and all(fit_together(job, each, way) for each in group)]
        if fitting:
            fitting[0].append(job)
        else:
            found.append((not alone, [job]))
    return [group for _, group in found]


def submissions(jobs):
    """What is printed: by every way and of every document, groups of jobs. The title identifies the output."""
    every = [{"jobs": group, "way": way, "document": document}
             for way in WAYS for document in DOCUMENTS
             for group in groups([job for job in jobs if way in job["ways"] and document in job["documents"]], way)]
    for number, each in enumerate(every, 1):
        each["title"] = f"Job {number}"
    return every


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
    document = os.path.join(directory, DOCUMENTS[each["document"]])
    lines = [line for job in each["jobs"] for line in job["ways"][each["way"]]]
    if each["way"] == "lp":
        command = ["lp", "-d", queue, "-t", each["title"], *shlex.split(" ".join(lines)), document]
    else:
        if each["way"] == "create-job":
            text = (ipp_request("Create-Job", each["title"], lines, None) +
                    ipp_request("Send-Document", each["title"], [], document))
        else:
            text = ipp_request("Print-Job", each["title"], lines, document)
        path = os.path.join(directory, each["title"] + ".test")
        open(path, "w", encoding="utf-8").write(text)
        command = ["ipptool", "-t", f"ipp://127.0.0.1/printers/{queue}", path]
    done = run(command)
    each["refused"] = [f"refused: {done.stdout}{done.stderr}"] if done.returncode != 0 else []


def wait_for_queues():
    for _ in range(3000):
        if not run(["lpstat", "-W", "not-completed", "-o"]).stdout:
            return
        time.sleep(0.2)
    sys.exit("jobs are left in the queues")


def streams(outputs):
    """What the printers got since the last call, by job title."""
    found = {}
    for output in outputs:
        for stream in output.read().replace(b"\x04", b"").split(UEL)[1:]:
            name = re.search(rb"^@PJL SET JOBNAME=([0-9A-F]+)$", stream, re.M)
            title = bytes.fromhex(name.group(1).decode()).decode("utf-8", "replace") if name else ""
            found.setdefault(title, []).append(UEL + stream)
    return found


def facts(stream):
    head, _, postscript = stream.decode("utf-8", "replace").partition(
        "@PJL ENTER LANGUAGE=POSTSCRIPT\n")
    header = dict(re.findall(r"^@PJL SET ([A-Z0-9]+)=(.*)$", head, re.M))
    # The operand is a string, or a number that the code turns into a string.
    stored = {key: text or number for text, number, key in re.findall(
        r"^(?:\((.*)\)|(-?\d+)\n20 string cvs) userdict exch /(QV\w+) exch put$", postscript, re.M)}
    return header, stored, postscript


def disagreements(stream_problems, directory, found):
    """What is wrong between header and PostScript in each stream, by job title."""
    files = []
    for title, titled in found.items():
        files.append(os.path.join(directory, title + ".stream"))
        with open(files[-1], "wb") as file:
            file.write(titled[0])
    if not files:
        return {}
    done = run([stream_problems, *files])
    if done.returncode != 0:
        sys.exit(f"stream_problems: status {done.returncode}, {done.stderr}")
    problems = {}
    for line in done.stdout.splitlines():
        file, _, problem = line.partition(".stream: ")
        problems.setdefault(os.path.basename(file), []).append(problem)
    return problems


def check(job, found, problems):
    if len(found) != 1:
        return [f"printed {len(found)} times"]
    header, stored, postscript = facts(found[0])
    wrong = list(problems)
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
        run(["lpadmin", "-p", queue, *shlex.split(arguments)], check=True)


# A job that changes a queue is a batch of its own.
def batches(all_submissions):
    batch = []
    for each in all_submissions:
        alone = changes_queue(each["jobs"][0])
        if batch and (alone or len(batch) == BATCH):
            yield batch
            batch = []
        batch.append(each)
        if alone:
            yield batch
            batch = []
    if batch:
        yield batch


def print_batch(batch, directory, stream_problems, queues, outputs):
    first = batch[0]["jobs"][0]
    change_queue("other", first["other"])
    change_queue(queues[0], first["queue"])
    with ThreadPoolExecutor(len(queues)) as pool:
        list(pool.map(lambda number, each: submit(each, directory, queues[number % len(queues)]),
                      range(len(batch)), batch))
        wait_for_queues()
    change_queue(queues[0], first["afterwards"])
    found = streams(outputs)
    problems = disagreements(stream_problems, directory, found)
    wrong = 0
    for each in batch:
        title = each["title"]
        for job in each["jobs"]:
            wrong += report(f"{job['what']} ({title}, {each['way']}, {each['document']})",
                            each["refused"] or check(job, found.get(title, []), problems.get(title, [])))
    return wrong


def main():
    jobs_file, directory, stream_problems, *queues = sys.argv[1:]
    every = submissions(read_jobs(jobs_file))
    outputs = [open(os.path.join(directory, queue + ".out"), "rb") for queue in queues]
    wrong = sum(print_batch(batch, directory, stream_problems, queues, outputs) for batch in batches(every))
    rows = sum(len(each["jobs"]) for each in every)
    print(f"{rows} jobs, printed as {len(every)}, in each of which header and PostScript were compared; {wrong} wrong")
    return wrong != 0


if __name__ == "__main__":
    sys.exit(main())
