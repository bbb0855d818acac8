// The colour scales: steps look equal, and say the same in black and white.
import assert from 'node:assert/strict';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { test } from 'node:test';
import { root } from './support/folders.mjs';

const { build } = createRequire(new URL('../../report/package.json', import.meta.url))('esbuild');

async function scaleOf(kind) {
  const { outputFiles } = await build({
    entryPoints: [join(root, 'report/src/drawing/colours.ts')],
    bundle: true,
    format: 'esm',
    write: false,
  });
  const code = Buffer.from(outputFiles[0].contents).toString('base64');
  return (await import(`data:text/javascript;base64,${code}`)).scale(kind);
}

// CIELAB of 1976, a space that the scales are not made in. From sRGB, for the white D65.
function lab(red, green, blue) {
  const [r, g, b] = [red, green, blue].map((byte) => {
    const value = byte / 255;
    return value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4;
  });
  const f = (t) => (t > (6 / 29) ** 3 ? Math.cbrt(t) : t / (3 * (6 / 29) ** 2) + 4 / 29);
  const x = f((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
  const y = f(0.2126 * r + 0.7152 * g + 0.0722 * b);
  const z = f((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
  return [116 * y - 16, 500 * (x - y), 200 * (y - z)];
}

// How the two kinds of red-green blindness see a colour, in linear light (Viénot, Brettel and
// Mollon 1999, Color Research and Application 24(4)): red and green become one.
function withoutRedGreen(red, green, blue) {
  const linear = (byte) => (byte / 255) ** 2.2;
  const mixed = 0.29275 * linear(red) + 0.70725 * linear(green);
  const byte = (value) => 255 * value ** (1 / 2.2);
  return [byte(mixed), byte(mixed), blue];
}

const colours = (scale) => Array.from({ length: 256 }, (_, i) => scale.slice(3 * i, 3 * i + 3));
const lightness = (scale) => colours(scale).map(([r, g, b]) => lab(r, g, b)[0]);
const apart = (one, other) => Math.hypot(...lab(...one).map((value, i) => value - lab(...other)[i]));

test('the diverging scale is equally dark on both sides, and lightest in the middle', async () => {
  const light = lightness(await scaleOf('diverging'));
  for (let i = 0; i < 128; ++i) assert.ok(Math.abs(light[i] - light[255 - i]) < 6, `${i}: ${light[i]} and ${light[255 - i]}`);
  for (let i = 4; i < 128; ++i) assert.ok(light[i] > light[i - 4] && light[255 - i] > light[259 - i], `entry ${i}`);
  assert.ok(light[127] > 94 && light[0] < 35);
});

test('the sides of the diverging scale differ for readers who do not tell red from green', async () => {
  const all = colours(await scaleOf('diverging'));
  for (const i of [0, 32, 64, 96]) {
    assert.ok(apart(withoutRedGreen(...all[i]), withoutRedGreen(...all[255 - i])) > 20, `entries ${i} and ${255 - i}`);
  }
});

for (const kind of ['sequential', 'grey']) {
  test(`the ${kind} scale goes one way in black and white`, async () => {
    const light = lightness(await scaleOf(kind));
    const sign = Math.sign(light[255] - light[0]);
    for (let i = 2; i < 256; ++i) assert.ok(sign * (light[i] - light[i - 2]) > 0, `entry ${i}`);
    assert.ok(Math.abs(light[255] - light[0]) > 60);
  });
}

test('grey is dark in the trough and light on the crest', async () => {
  const light = lightness(await scaleOf('grey'));
  assert.ok(light[0] < light[255]);
  for (const [r, g, b] of colours(await scaleOf('grey'))) assert.ok(r === g && g === b);
});

test('the cyclic scale has no seam and no light side', async () => {
  const scale = await scaleOf('cyclic');
  const all = colours(scale);
  assert.ok(apart(all[0], all[255]) < 3);
  const light = lightness(scale);
  assert.ok(Math.max(...light) - Math.min(...light) < 12);
});

for (const kind of ['diverging', 'sequential', 'cyclic', 'grey']) {
  test(`steps of the ${kind} scale are of about the same size`, async () => {
    const all = colours(await scaleOf(kind));
    const steps = Array.from({ length: 16 }, (_, i) => apart(all[16 * i], all[Math.min(16 * i + 16, 255)]));
    assert.ok(Math.max(...steps) < 2.6 * Math.min(...steps), steps.map((step) => step.toFixed(1)).join(' '));
  });
}
