// How to make the run again, and what it was made from.
import type { Summary, SummaryFile } from '../data/data';
import { counted } from '../data/words';
import { element } from './frame';
import { fold } from './messages';
import type { Part } from './page';

export const repeatPart: Part = async ({ data }) => {
  const { summary } = data;
  const section = element('section', 'chart repeat');
  section.id = 'repeat';
  const head = element('div', 'chart-head');
  head.append(element('h2', '', 'How to repeat the run'));
  section.append(
    head,
    element(
      'p',
      '',
      'The folder of this page has the job and the files that it used. With the same build of the program, these ' +
        'commands in the folder make the same bytes again and compare them:',
    ),
    element('pre', '', 'kelpbox run job.toml --out ../again\ndiff -r . ../again'),
    facts(summary),
    fold('Job (job.toml)', data.job),
  );
  const files = summary.files ?? [];
  const inputs = summary.inputs.filter((input) => !files.some((file) => file.name === input.name));
  if (files.length + inputs.length > 0) {
    section.append(checksums(`Checksums of ${counted(files.length + inputs.length, 'file')}`, [...files, ...inputs]));
  }
  return section;
};

function facts({ kelpbox, compiler, site, run, drive, field }: Summary): HTMLElement {
  const list = element('dl', 'facts');
  const add = (name: string, value: string): void => {
    if (value) list.append(element('dt', '', name), element('dd', '', value));
  };
  add('Program', `kelpbox ${kelpbox}, compiled by ${compiler}`);
  add('Site', [site.identity, site.file].filter(Boolean).join(', from '));
  add('Repeat', `${short(run.repeat)} s; harmonics ${run.lowest_harmonic} to ${run.highest_harmonic}`);
  add('Waves', `${counted(run.fronts, 'front')}${run.side_walls ? ', with reflections from the side walls' : ''}`);
  if (drive) {
    const limit = drive.stop_at_limit ? ', held at the limits of the machine' : '';
    add('Signals', `${counted(drive.samples, 'sample')} at ${short(drive.rate)} Hz, ramps of ${short(drive.ramp)} s${limit}`);
  }
  if (field) add('Wave field', `${counted(field.frames, 'frame')} of ${field.x.count} × ${field.y.count} points at ${short(field.rate)} Hz`);
  return list;
}

// Without the rounding errors of the last digits.
function short(value: number): string {
  return String(Number(value.toPrecision(9)));
}

// In the form that `sha256sum --check` reads.
function checksums(title: string, files: SummaryFile[]): HTMLElement {
  const made = fold(title, files.map((file) => `${file.sha256}  ${file.name}`).join('\n'));
  made.append(element('p', 'caption', 'SHA-256. Saved to a file, the lines can be given to sha256sum --check.'));
  return made;
}
