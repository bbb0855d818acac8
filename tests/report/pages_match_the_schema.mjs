// Runs jobs and compares the data of their pages with report/schema/page.schema.json.
//
//   node pages_match_the_schema.mjs KELPBOX EXAMPLES FOLDER
//
// FOLDER is emptied and holds the results then.
import { execFileSync } from 'node:child_process';
import { mkdirSync, readFileSync, readdirSync, rmSync, statSync } from 'node:fs';
import { createRequire } from 'node:module';
import { basename, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { checkPacked, eachPacked, pageData } from './page_data.mjs';

const [kelpbox, examples, folder] = process.argv.slice(2).map((path) => resolve(path));
const report = fileURLToPath(new URL('../../report', import.meta.url));
const Ajv = createRequire(join(report, 'package.json'))('ajv/dist/2020').default;
const matches = new Ajv({ strict: true, strictTypes: false, allErrors: true }).compile(
  JSON.parse(readFileSync(join(report, 'schema/page.schema.json'), 'utf8')),
);

const largest = 5_000_000; // bytes, of a page
let failures = 0;

function fail(page, problem) {
  console.error(`${page}: ${problem}`);
  ++failures;
}

function checkPage(name, out) {
  const file = join(out, 'report.html');
  const data = pageData(file);
  if (!matches(data)) {
    for (const error of matches.errors.slice(0, 10)) {
      fail(name, `${error.instancePath} ${error.message} ${JSON.stringify(error.params)}`);
    }
  }
  eachPacked(data, (packed, where) => {
    try {
      checkPacked(packed, where);
    } catch (error) {
      fail(name, error.message);
    }
  });
  const summary = JSON.parse(readFileSync(join(out, 'summary.json'), 'utf8'));
  if (JSON.stringify(data.summary) !== JSON.stringify(summary)) fail(name, 'its summary is not summary.json');
  const { size } = statSync(file);
  if (size > largest) fail(name, `has ${size} bytes`);
  return data;
}

// A schema that takes anything would prove nothing.
function checkRefusals(name, data) {
  const spoilt = [
    ['a key too many', (page) => (page.other = 1)],
    ['a missing key', (page) => delete page.log],
    ['a text as a rate', (page) => (page.drive[0].rate = '64')],
    ['a negative step', (page) => (page.drive[0].signals.step = -1)],
    ['a key too many in the summary', (page) => (page.summary.run.other = 1)],
    ['a missing key of a finding', (page) => delete page.summary.findings[0].verdict],
  ];
  for (const [what, spoil] of spoilt) {
    const page = structuredClone(data);
    spoil(page);
    if (matches(page)) fail(name, `the schema takes ${what}`);
  }
}

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
const jobs = readdirSync(join(examples, 'jobs')).filter((name) => name.endsWith('.toml'));

function run(job, name, ...outputs) {
  const out = join(folder, name);
  const settings = outputs.flatMap((output) => ['--set', `outputs.${output}=false`]);
  execFileSync(kelpbox, ['run', join(examples, 'jobs', job), '--out', out, '--quiet', ...settings]);
  return checkPage(name, out);
}

for (const job of jobs) {
  const name = basename(job, '.toml');
  const data = run(job, name, 'csv');
  if (job === jobs[0]) checkRefusals(name, data);
}
run(jobs[0], 'without_signals', 'csv', 'netcdf');
run(jobs[0], 'without_netcdf', 'netcdf');
console.log(`${jobs.length + 2} pages, ${failures} failures`);
process.exit(failures === 0 && jobs.length > 0 ? 0 : 1);
