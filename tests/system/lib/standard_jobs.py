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
# A job with lines for several ways of submission is printed once by each. Whatever the lines of a job say, its
# header and PostScript must not disagree, and only the header may ask for copies: the program STREAM_PROBLEMS,
# which reads streams as kelmctl explain does, must find nothing wrong.
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
            "header": {}, "stored": {}, "pages": None}


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


def submissions(jobs):
    """Each job once for every way of submission and document. The title identifies its output."""
    every = [{"job": job, "way": way, "document": document}
             for job in jobs for way in WAYS if way in job["ways"] for document in job["documents"]]
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
    lines = each["job"]["ways"][each["way"]]
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


def check(each, found, problems):
    job = each["job"]
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


def print_batch(batch, directory, stream_problems, queues, outputs):
    first = batch[0]["job"]
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
        wrong += report(f"{each['job']['what']} ({each['way']}, {each['document']})",
                        each["refused"] or check(each, found.get(title, []), problems.get(title, [])))
    return wrong


def main():
    jobs_file, directory, stream_problems, *queues = sys.argv[1:]
    every = submissions(read_jobs(jobs_file))
    outputs = [open(os.path.join(directory, queue + ".out"), "rb") for queue in queues]
    wrong = sum(print_batch(batch, directory, stream_problems, queues, outputs) for batch in batches(every))
    print(f"{len(every)} jobs, in each of which header and PostScript were compared; {wrong} wrong")
    return wrong != 0


if __name__ == "__main__":
    sys.exit(main())
