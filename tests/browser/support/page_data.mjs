// The data in a page: taken out, changed, put back. Packed arrays as data.ts describes them.
import { readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { deflateSync, inflateSync } from 'node:zlib';
import { pages } from './folders.mjs';

const block = /(<script type="application\/json" id="data">)([^]*?)(<\/script>)/;

export function readData(name) {
  return JSON.parse(block.exec(readFileSync(join(pages, `${name}.html`), 'utf8'))[2]);
}

// Writes the page `target`, which is the page `source` with other data.
export function writeChanged(source, target, change) {
  const text = readFileSync(join(pages, `${source}.html`), 'utf8');
  const data = JSON.parse(block.exec(text)[2]);
  const changed = JSON.stringify(change(data) ?? data).replaceAll('<', '\\u003c');
  writeFileSync(join(pages, `${target}.html`), text.replace(block, (_, before, __, after) => before + changed + after));
}

// Counts in the order of the array, without differences.
export function pack(counts, shape, step) {
  const bytes = Buffer.alloc(2 * counts.length);
  counts.forEach((count, i) => {
    bytes[i] = count & 255;
    bytes[counts.length + i] = (count >> 8) & 255;
  });
  return { shape, step, differences: -1, data: deflateSync(bytes).toString('base64') };
}

export function unpack({ shape, step, differences, data }) {
  const bytes = inflateSync(Buffer.from(data, 'base64'));
  const size = bytes.length / 2;
  const counts = new Int16Array(size);
  for (let i = 0; i < size; ++i) counts[i] = bytes[i] | (bytes[size + i] << 8);
  if (differences >= 0) {
    const stride = shape.slice(differences + 1).reduce((product, length) => product * length, 1);
    const length = shape[differences];
    for (let i = 0; i < size; ++i) if (Math.floor(i / stride) % length) counts[i] += counts[i - stride];
  }
  return { counts, shape, step };
}
