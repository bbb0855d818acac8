// Makes the pages that the tests look at, by the program itself.
//
//   KELPBOX=PROGRAM node make_pages.mjs
import { execFileSync } from 'node:child_process';
import { copyFileSync, existsSync } from 'node:fs';
import { join } from 'node:path';
import { changedPages } from './support/changed_pages.mjs';
import { pages, root, runs } from './support/folders.mjs';
import { writeJobs } from './support/jobs.mjs';

const examples = ['short_crested', 'focused_group', 'crossed_seas', 'beach_jonswap'];
const jobs = {
  ...Object.fromEntries(examples.map((name) => [name, join(root, 'examples/jobs', `${name}.toml`)])),
  ...writeJobs(join(runs, 'jobs')),
};

for (const [name, job] of Object.entries(jobs)) {
  const out = join(runs, name);
  execFileSync(process.env.KELPBOX, ['run', '--quiet', '--out', out, job], { stdio: 'inherit' });
  const page = join(out, 'report.html');
  if (!existsSync(page)) throw new Error(`${name}: the run wrote no report.html`);
  copyFileSync(page, join(pages, `${name}.html`));
  console.log(`page ${name}`);
}
for (const name of changedPages()) console.log(`page ${name}`);
