# Reads the limits and the CSV results of benchmarks, and prints each benchmark's ratio to its peers as a table: that of
# the fastest repetitions. A ratio is noted as over its limit, or as close to it if it is not a tenth below.
# Fails when a benchmark reports an error, and with -v strict=1 when a ratio is over its limit.

# Splits group/ours/ARGUMENT or group/peer:NAME/ARGUMENT into group, role and argument, ARGUMENT with its slash.
function splitName(name) {
    gsub(/\/(repeats|min_time|min_warmup_time|iterations|threads):[^\/]*|\/(real_time|process_time|manual_time)/, "", name)
    group = role = argument = name
    sub(/\/.*/, "", group)
    sub(/^[^\/]*\//, "", role)
    sub(/\/.*/, "", role)
    argument = substr(name, length(group "/" role) + 1)
}

# Processor time, or the time that the benchmark was registered with: on the clock, or what it says itself.
function timeOf(name) {
    return nanoseconds(name ~ /\/(real|manual)_time/ ? field[2] : field[3], field[4])
}

# Whether there was no time of this name, or a longer one.
function isFaster(spent, times, name) {
    return !(name in times) || spent < times[name]
}

function noteOn(ratio, most) {
    return most == "" || ratio <= 0.9 * most ? "" : ratio <= most + 0 ? "close" : "over"
}

function nanoseconds(value, unit) {
    return value * (unit == "ns" ? 1 : unit == "us" ? 1e3 : unit == "ms" ? 1e6 : 1e9)
}

# In random order they came, since a program's repetitions do.
function sortKeys(    i, j, key) {
    for (i = 2; i <= keyCount; ++i) {
        key = keys[i]
        for (j = i; j > 1 && keys[j - 1] > key; --j)
            keys[j] = keys[j - 1]
        keys[j] = key
    }
}

BEGIN {
    format = "%-36s %-32s %12s %12s %8s %7s %s\n"
}

FILENAME ~ /limits$/ {
    sub(/#.*/, "")
    if (NF > 1) {
        most = $NF
        sub(/[ \t]+[^ \t]+[ \t]*$/, "")
        limit[$0] = most
    }
    next
}

# A row: "name",iterations,real time,processor time,unit,bytes,items,label,error,message
/^"/ {
    name = substr($0, 2, index($0, "\",") - 2)
    split(substr($0, index($0, "\",") + 2), field, ",")
    if (field[8] == "true") {
        print name ": " field[9]
        failed = 1
    } else if (name !~ /_(mean|median|stddev|cv)$/) {
        spent = timeOf(name)
        splitName(name)
        key = group argument
        if (role == "ours") {
            if (!(key in ours))
                keys[++keyCount] = key
            groupOf[key] = group
            if (isFaster(spent, ours, key))
                ours[key] = spent
        } else if (sub(/^peer:/, "", role)) {
            if (!((key, role) in time))
                peers[key] = peers[key] role "\n"
            if (isFaster(spent, time, key SUBSEP role))
                time[key, role] = spent
        }
    }
}

END {
    sortKeys()
    if (keyCount)
        printf format, "group", "peer", "ours ns", "peer ns", "ratio", "limit", ""
    for (i = 1; i <= keyCount; ++i) {
        key = keys[i]
        peerKey = (key in peers) ? key : groupOf[key]
        peerCount = split(peers[peerKey], names, "\n") - 1
        if (peerCount < 1)
            printf format, key, "-", sprintf("%.1f", ours[key]), "", "", "", ""
        for (j = 1; j <= peerCount; ++j) {
            peer = time[peerKey, names[j]]
            ratio = peer > 0 ? ours[key] / peer : 0
            most = (key in limit) ? limit[key] : limit[groupOf[key]]
            note = noteOn(ratio, most)
            printf format, key, names[j], sprintf("%.1f", ours[key]), sprintf("%.1f", peer), sprintf("%.2f", ratio), most, \
                note
            isOver = isOver || note == "over"
        }
    }
    exit failed || (strict && isOver)
}
