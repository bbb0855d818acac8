// Pages whose data no job of a sound program would give: NaN, a single sample, hostile remarks.
import { evil } from './evil.mjs';
import { pack, unpack, writeChanged } from './page_data.mjs';

export function changedPages() {
  writeChanged('focused_group', 'nan_in_points', nanInPoints);
  writeChanged('focused_group', 'one_sample', oneSample);
  writeChanged('focused_group', 'one_place', onePlace);
  writeChanged('focused_group', 'hostile_results', hostileResults);
  writeChanged('focused_group', 'one_of_each', oneOfEach);
  writeChanged('focused_group', 'turned_names', turnedNames);
  writeChanged('beach_jonswap', 'far_paddle', farPaddle);
  return ['far_paddle', 'one_of_each', 'turned_names', 'nan_in_points', 'one_sample', 'one_place', 'hostile_results'];
}

function nanInPoints(data) {
  for (const point of data.points) {
    const { counts, shape, step } = unpack(point.eta);
    counts.fill(-32768, 10, 40);
    point.eta = pack(counts, shape, step);
  }
  for (const point of data.summary.points) {
    for (const key of Object.keys(point.statistics)) point.statistics[key].value = null;
  }
}

function oneSample(data) {
  for (const point of data.points) {
    const { counts, step } = unpack(point.eta);
    point.eta = pack(counts.slice(0, 1), [1], step);
    delete point.spectrum;
  }
  for (const bank of data.drive) {
    const { counts, shape, step } = unpack(bank.signals);
    const first = Int16Array.from({ length: shape[0] }, (_, row) => counts[row * shape[1]]);
    bank.signals = pack(first, [shape[0], 1], step);
  }
  cutField(data.field, 1, data.field.y.count, data.field.x.count);
  for (const point of data.summary.points) point.samples = 1;
}

function onePlace(data) {
  cutField(data.field, data.field.eta.shape[0], 1, 1);
}

// Keeps the first frames, rows and columns of a field.
function cutField(field, frames, rows, columns) {
  const { counts, shape, step } = unpack(field.eta);
  const kept = new Int16Array(frames * rows * columns);
  for (let i = 0; i < kept.length; ++i) {
    const column = i % columns;
    const row = Math.floor(i / columns) % rows;
    const frame = Math.floor(i / (columns * rows));
    kept[i] = counts[(frame * shape[1] + row) * shape[2] + column];
  }
  field.eta = pack(kept, [frames, rows, columns], step);
  field.x.count = columns;
  field.y.count = rows;
}

// Without a field the plan draws crests over the whole tank: here over two million kilometres.
function farPaddle({ summary }) {
  summary.plan.banks[0].paddles.x[0] = 2 ** 31;
}

function oneOfEach({ summary }) {
  summary.spectrum.harmonics = 1;
  summary.run.fronts = 1;
  summary.drive.samples = 1;
  summary.field.frames = 1;
  summary.findings.length = 1;
  summary.findings[0].minor = true;
  summary.findings[0].verdict = 'good';
  summary.files.length = 1;
  summary.inputs.length = 0;
}

// Characters that turn the direction of text.
export const turning = '\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069\u200e\u200f\u061c';

function turnedNames(data) {
  data.summary.title = data.summary.points[0].name = data.summary.seas[0].name = `\u202ereversed${turning}`;
  data.job = `# ${turning}\n${data.job}`;
}

// A script in every text that is free in results.
const free = new Set(['title', 'name', 'tank', 'file', 'sentence', 'quantity', 'asked_text', 'made_text', 'criterion',
  'remark', 'kelpbox', 'compiler', 'identity', 'sha256', 'job', 'log', 'units', 'group', 'key']);

function hostileResults(data) {
  infect(data);
  data.summary.remarks.push(evil);
  for (const point of data.summary.points) point.remarks.push(evil);
  data.summary.field.remarks.push(evil);
}

function infect(node) {
  for (const [key, value] of Object.entries(node)) {
    if (Array.isArray(value) && ['remarks', 'waves'].includes(key)) node[key] = value.map((text) => text + evil);
    else if (typeof value === 'object' && value !== null) infect(value);
    // The key of a still names its kind; those of findings are free.
    else if (typeof value === 'string' && free.has(key) && !('eta' in node)) node[key] = value + evil;
  }
}
