# explained_jobs.py : compares what kelmctl explain says about the lp jobs in a file with what the printer
# gets.
#
#   explained_jobs.py JOBS QUEUE KELMCTL
#
# standard_jobs.py, which prints these jobs, describes the file JOBS.
# SPDX-License-Identifier: Apache-2.0
import json
import shlex
import sys

from case_files import report, run
from standard_jobs import change_queue, read_jobs


def explained(kelmctl, queue, job):
    arguments = shlex.split(" ".join(job["ways"]["lp"]))
    done = run([kelmctl, "explain", queue, *arguments, "--json"])
    if done.returncode not in (0, 1) or not done.stdout:
        sys.exit(f"{job['what']}: {done.stderr}")
    return {line["variable"]: line["value"] for line in json.loads(done.stdout)["lines"]}


def differences(kelmctl, queue, job):
    change_queue("other", job["other"])
    change_queue(queue, job["queue"])
    header = explained(kelmctl, queue, job)
    change_queue(queue, job["afterwards"])
    return [f"{name} is {header.get(name)}, and the printer gets {value}"
            for name, value in job["header"].items() if header.get(name) != value]


def main():
    jobs_file, queue, kelmctl = sys.argv[1:]
    jobs = [job for job in read_jobs(jobs_file) if "lp" in job["ways"] and job["header"]]
    wrong = sum(report(job["what"], differences(kelmctl, queue, job)) for job in jobs)
    print(f"{len(jobs)} jobs explained, {wrong} wrong")
    return wrong != 0 or len(jobs) < 150


sys.exit(main())
