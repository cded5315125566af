"""record_heard.py FOLDER: compares what a listener has heard with what the stores hold, by (run, number)."""
import collections
import glob
import json
import sqlite3
import sys

folder = sys.argv[1]


def hearing(name):
    heard = collections.defaultdict(list)
    for line in open(f"{folder}/{name}"):
        topic, text = line.split(" ", 1)
        reading = json.loads(text)
        heard[topic].append((reading["run"], reading["number"]))
    return heard


def again(heard):
    return sum(len(keys) - len(set(keys)) for keys in heard.values())


held = collections.defaultdict(list)
for path in glob.glob(f"{folder}/**/*.db", recursive=True):
    if path.endswith("mosquitto.db"):
        continue
    for topic, run, number in sqlite3.connect(path).execute(
            "SELECT topic, run, r.number FROM published p JOIN readings r USING (run) WHERE item = 1 ORDER BY run, r.number"):
        held[topic].append((run, number))

heard = hearing("heard")
faults = [] if len(held) == 20 else [f"{len(held)} topics in the stores"]
for topic, keys in held.items():
    first = list(dict.fromkeys(heard[topic]))  # a listener that was cut off may be told its last ones again
    if first != keys:
        missing, unknown = set(keys) - set(first), set(first) - set(keys)
        faults.append(f"{topic}: {len(keys)} held, {len(first)} heard, {len(missing)} missing, {len(unknown)} unknown, "
                      f"{'out of order' if not missing and not unknown else ''} {sorted(missing)[:5]}")
# While only recorders were killed, nobody was told anything twice.
if again(hearing("before")) != 0:
    faults.append(f"{again(hearing('before'))} told twice after recorders were killed")
print(f"{sum(map(len, held.values()))} readings of {len(set((t, r) for t, k in held.items() for r, _ in k))} runs, "
      f"{again(heard)} told again by a broker that was killed or ended")
sys.exit("\n".join(faults) if faults else 0)
