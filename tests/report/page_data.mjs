// The data of a page, read as a browser does.
import { readFileSync } from 'node:fs';
import { inflateSync } from 'node:zlib';

export function pageData(file) {
  const page = readFileSync(file, 'utf8');
  const element = /<script type="application\/json" id="data">([^<]*)<\/script>/.exec(page);
  if (!element) throw new Error(`${file}: has no data`);
  return JSON.parse(element[1]);
}

// Throws if a packed array does not hold what its shape says.
export function checkPacked(packed, name) {
  const size = packed.shape.reduce((product, length) => product * length, 1);
  const bytes = inflateSync(Buffer.from(packed.data, 'base64')).length;
  if (bytes !== 2 * size) throw new Error(`${name}: ${bytes} bytes for ${size} counts`);
  if (packed.differences >= packed.shape.length) throw new Error(`${name}: has no axis ${packed.differences}`);
}

// Calls with each packed array below a value, and its name.
export function eachPacked(value, call, name = 'page') {
  if (value === null || typeof value !== 'object') return;
  if ('differences' in value) {
    call(value, name);
    return;
  }
  for (const [key, below] of Object.entries(value)) eachPacked(below, call, `${name}.${key}`);
}
