// Jobs that the examples do not have: many paddles, a check that fails, hostile texts.
import { mkdirSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { evil, evilBare } from './evil.mjs';
import { root } from './folders.mjs';
import { siteText } from './site_text.mjs';

const quoted = (text) => JSON.stringify(text);

function put(folder, name, text) {
  const file = join(folder, name);
  mkdirSync(dirname(file), { recursive: true });
  writeFileSync(file, text);
  return file;
}

// Writes the jobs with all they need, and gives the path of each by the name of its page.
export function writeJobs(folder) {
  return { thousand: thousand(folder), looks: looks(folder), hostile: hostile(folder), flume_field: flumeField(folder) };
}

function thousand(folder) {
  put(folder, 'thousand.site', siteText({ banks: [{ name: 'wall', paddles: 1000, width: 0.1 }] }));
  return put(folder, 'thousand.toml', `title = "A thousand paddles"
site = "thousand.site"
[run]
repeat = "16 s"
[[sea]]
holds = { x = "5 m", y = "50 m" }
  [[sea.wave]]
  kind = "single"
  f = "0.5 Hz"
  a = "20 mm"
  angle = "10 deg"
[[point]]
name = "middle"
x = "5 m"
y = "50 m"
`);
}

// Waves that break: they are higher than their length allows.
function looks(folder) {
  put(folder, 'looks.site', siteText({ banks: [{ name: 'wall', paddles: 8, width: 0.5 }] }));
  return put(folder, 'looks.toml', `title = "Too high"
site = "looks.site"
[run]
repeat = "60 s"
[[sea]]
holds = { x = "5 m", y = "2 m" }
  [[sea.wave]]
  kind = "jonswap"
  hs = "900 mm"
  tp = "1.6 s"
  [[sea.change]]
  kind = "random_phases"
[[point]]
name = "middle"
x = "5 m"
y = "2 m"
[field]
rate = "4 Hz"
x = { from = "0 m", to = "10 m", step = "0.5 m" }
y = { from = "0 m", to = "4 m", step = "0.5 m" }
`);
}

// One paddle, and a field of two rows.
function flumeField(folder) {
  return put(folder, 'flume_field.toml', `title = "A regular wave in the flume"
site = ${quoted(join(root, 'examples/flume.site'))}
[run]
repeat = "20 s"
[[sea]]
holds = { x = "9 m" }
  [[sea.wave]]
  kind = "single"
  f = "0.5 Hz"
  a = "30 mm"
[[point]]
name = "flat"
x = "9 m"
y = "0.4 m"
[field]
rate = "10 Hz"
x = { from = "0 m", to = "25 m", step = "0.25 m" }
y = { from = "0 m", to = "0.8 m", step = "0.8 m" }
`);
}

// A script in every text of a job, of its site and of its record.
function hostile(folder) {
  put(folder, 'hostile.site', siteText({
    names: { site: evilBare, tank: evilBare, config: evilBare },
    banks: [{ name: evilBare, paddles: 8, width: 0.5 }],
  }));
  const rows = Array.from({ length: 200 }, (_, i) => `${i / 10},${(20 * Math.sin(i * 0.4)).toFixed(3)}`);
  const record = '<img src=x onerror=window.pwned=5>.csv';
  put(folder, record, `# ${evil}\ntime,${evilBare} [mm]\n${rows.join('\n')}\n`);
  return put(folder, 'hostile.toml', `# ${evil}
title = ${quoted(evil)}
site = "hostile.site"
[run]
repeat = "20 s"
[[sea]]
name = ${quoted(evil)}
holds = { x = "5 m", y = "2 m" }
  [[sea.wave]]
  kind = "record"
  file = ${quoted(record)}
  column = ${quoted(evilBare)}
[[point]]
name = ${quoted(evil)}
x = "5 m"
y = "2 m"
[field]
rate = "4 Hz"
x = { from = "0 m", to = "10 m", step = "1 m" }
y = { from = "0 m", to = "4 m", step = "1 m" }
`);
}
