# standard_jobs.py : prints the jobs of a file and compares what the printer gets of each.
#
#   standard_jobs.py JOBS DIRECTORY QUEUE KELMCTL
#
# DIRECTORY holds document.ps, document.pdf, document.txt and printer.out, to which the printer
# appends. Lines of JOBS:
#   job WHAT                  begins a job
#   queue ARGUMENTS           lpadmin arguments for the queue before the job
#   afterwards ARGUMENTS      and after it
#   document ps|pdf|text      what is printed; ps when not given
#   lp ARGUMENTS              printed by lp with these arguments
#   ipp GROUP ATTRIBUTE...    an attribute line of ipptool instead, one each; "create" before
#                             the first one: by Create-Job and Send-Document
#   NAME=VALUE                a line of the header
#   KEYWORD: VALUE            what the printer finds in userdict, or no value after the colon
#   pages N                   how many pages the PostScript has
# In every job, kelmctl explain compares header and PostScript: they never disagree, and only the
# header asks for copies.
# SPDX-License-Identifier: Apache-2.0
import os
import re
import shlex
import subprocess
import sys
import time

def read_jobs(path):
    jobs = []
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if not line or line.startswith("#"):
            continue
        word, _, rest = line.partition(" ")
        if word == "job":
            jobs.append({"what": rest, "document": "ps", "lp": None, "ipp": [], "create": False,
                         "queue": "", "afterwards": "", "header": {}, "stored": {}, "pages": None})
        elif word in ("document", "lp", "queue", "afterwards"):
            jobs[-1][word] = rest
        elif word == "ipp":
            jobs[-1]["ipp"].append(rest)
        elif word == "create":
            jobs[-1]["create"] = True
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


def ipp_request(operation, queue, attributes, document):
    lines = [f"OPERATION {operation}", "GROUP operation-attributes-tag",
             "ATTR charset attributes-charset utf-8", "ATTR language attributes-natural-language en",
             "ATTR uri printer-uri $uri", "ATTR name requesting-user-name miller"]
    if operation == "Send-Document":
        lines += ["ATTR integer job-id $job-id", "ATTR boolean last-document true"]
    else:
        lines += ["ATTR name job-name Report"]
        lines += ["ATTR " + each[len("operation "):] for each in attributes
                  if each.startswith("operation ")]
        lines += ["GROUP job-attributes-tag"]
        lines += ["ATTR " + each for each in attributes if not each.startswith("operation ")]
    if document:
        lines.append(f"FILE {document}")
    lines += ["STATUS successful-ok", "EXPECT job-id"]
    return "{\n" + "\n".join(lines) + "\n}\n"


def submit(job, directory, queue):
    endings = {"ps": "ps", "pdf": "pdf", "text": "txt"}
    document = os.path.join(directory, "document." + endings[job["document"]])
    if job["lp"] is not None:
        command = ["lp", "-d", queue, "-t", "Report", *shlex.split(job["lp"]), document]
    else:
        if job["create"]:
            text = (ipp_request("Create-Job", queue, job["ipp"], None) +
                    ipp_request("Send-Document", queue, [], document))
        else:
            text = ipp_request("Print-Job", queue, job["ipp"], document)
        path = os.path.join(directory, "request.test")
        open(path, "w", encoding="utf-8").write(text)
        command = ["ipptool", "-t", f"ipp://127.0.0.1/printers/{queue}", path]
    done = subprocess.run(command, capture_output=True, text=True, timeout=30, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"refused: {done.stdout}{done.stderr}")


def wait_for_job(directory, queue, before):
    for _ in range(600):
        left = subprocess.run(["lpstat", "-W", "not-completed", "-o", queue], capture_output=True,
                              text=True, timeout=30, check=False).stdout
        if not left and os.path.getsize(os.path.join(directory, "printer.out")) > before:
            return
        time.sleep(0.05)
    raise RuntimeError("not printed")


def printed(directory, before):
    with open(os.path.join(directory, "printer.out"), "rb") as file:
        file.seek(before)
        stream = file.read().replace(b"\x04", b"")
    head, _, postscript = stream.decode("utf-8", "replace").partition(
        "@PJL ENTER LANGUAGE=POSTSCRIPT\n")
    header = dict(re.findall(r"^@PJL SET ([A-Z0-9]+)=(.*)$", head, re.M))
    # The operand is a string, or a number that the code makes a string of.
    stored = {key: text or number for text, number, key in re.findall(
        r"^(?:\((.*)\)|(-?\d+)\n20 string cvs) userdict exch /(QV\w+) exch put$", postscript, re.M)}
    return stream, header, stored, postscript


def disagreements(kelmctl, stream):
    """What kelmctl finds wrong with header and PostScript."""
    done = subprocess.run([kelmctl, "explain", "--stream", "-"], input=stream, capture_output=True,
                          timeout=30, check=False)
    found = re.findall(r"^WRONG (.*)$", done.stdout.decode("utf-8"), re.M)
    if done.returncode != (1 if found else 0) or not done.stdout:
        found.append(f"kelmctl explain: status {done.returncode}, {done.stderr.decode()}")
    return found


def check(job, directory, queue, kelmctl):
    output = os.path.join(directory, "printer.out")
    before = os.path.getsize(output) if os.path.exists(output) else 0
    submit(job, directory, queue)
    wait_for_job(directory, queue, before)
    stream, header, stored, postscript = printed(directory, before)
    wrong = disagreements(kelmctl, stream)
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
        subprocess.run(["lpadmin", "-p", queue, *shlex.split(arguments)], timeout=30, check=True,
                       stderr=subprocess.DEVNULL)


def main():
    jobs_file, directory, queue, kelmctl = sys.argv[1:]
    failed = 0
    jobs = read_jobs(jobs_file)
    for job in jobs:
        change_queue(queue, job["queue"])
        try:
            wrong = check(job, directory, queue, kelmctl)
        except RuntimeError as error:
            wrong = [str(error)]
        change_queue(queue, job["afterwards"])
        for each in wrong:
            print(f"{job['what']}: {each}", file=sys.stderr)
        failed += bool(wrong)
    print(f"{len(jobs)} jobs, in each of which header and PostScript were compared; {failed} wrong")
    return failed != 0


sys.exit(main())
