// The polar plot of energy by frequency and direction.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled } from './support/browser.mjs';
import { download } from './support/downloads.mjs';
import { readData } from './support/page_data.mjs';
import { pixels } from './support/pixels.mjs';

after(closeBrowser);

const degrees = (angle) => (angle * 180) / Math.PI;
const readout = (page) => page.$eval('#directions .readout', (line) => line.textContent.replaceAll('−', '-'));
const press = async (page, key) => {
  await page.focus('#directions canvas');
  await page.keyboard.press(key);
  await settled(page);
};

// The cell with the greatest variance for its size.
function densest({ f, angle, variance }) {
  let best = { density: -1 };
  variance.forEach((row, i) => row.forEach((value, j) => {
    const density = (value * 1e6) / ((f[i + 1] - f[i]) * degrees(angle[j + 1] - angle[j]));
    if (density > best.density) best = { density, i, j };
  }));
  return best;
}

test('the chosen sector says its directions, frequencies and density', async () => {
  const { directions } = readData('short_crested').summary;
  const { density, i, j } = densest(directions);
  const page = await open('short_crested');
  await press(page, 'ArrowUp');
  await press(page, 'ArrowDown'); // back to the densest
  const found = /^(-?[\d.]+)° \(([\d.]+)° wide\), ([\d.]+) Hz to ([\d.]+) Hz: ([\d.]+) mm²/.exec(await readout(page));
  assert.ok(found, await readout(page));
  const [middle, width, from, to, shown] = found.slice(1).map(Number);
  assert.ok(Math.abs(middle - width / 2 - degrees(directions.angle[j])) < 0.01, await readout(page));
  assert.ok(Math.abs(middle + width / 2 - degrees(directions.angle[j + 1])) < 0.01, await readout(page));
  assert.ok(Math.abs(from - directions.f[i]) < 0.006 && Math.abs(to - directions.f[i + 1]) < 0.006);
  assert.ok(Math.abs(shown - density) < 0.01 * density);
  await press(page, 'ArrowLeft');
  assert.ok(Math.abs(Number((await readout(page)).split('°')[0]) - middle - width) < 0.01, 'left is anticlockwise');
});

test('nautical directions say where waves come from', async () => {
  const { directions } = readData('short_crested').summary;
  const { j } = densest(directions);
  const page = await open('short_crested');
  const tank = await pixels(page, '#directions');
  const [, nautical] = await page.$$('#directions .tools button');
  await nautical.click();
  await settled(page);
  assert.notEqual((await pixels(page, '#directions')).sum, tank.sum);
  await press(page, 'ArrowUp');
  // Waves that go along +x come from 270 degrees.
  const expected = (270 - degrees(directions.angle[j] + directions.angle[j + 1]) / 2 + 360) % 360;
  assert.ok(Math.abs(Number((await readout(page)).split('°')[0]) - expected) < 0.01, await readout(page));
  assert.equal(await nautical.evaluate((button) => button.getAttribute('aria-pressed')), 'true');
});

test('the pointer finds the sector that the picture shows', async () => {
  const page = await open('short_crested');
  await page.$eval('#directions', (section) => section.scrollIntoView());
  const canvas = await page.$('#directions canvas');
  const box = await canvas.boundingBox();
  const centre = { x: box.x + box.height / 2, y: box.y + box.height / 2 }; // the plot is square, at the left
  await page.mouse.move(centre.x + 60, centre.y - 60);
  await settled(page);
  const [middle, width] = /^(-?[\d.]+)° \(([\d.]+)° wide\)/.exec(await readout(page)).slice(1).map(Number);
  assert.ok(Math.abs(middle - 45) <= width / 2, `${middle}, ${width} wide`);
});

test('the saved table has all variance, and the sums by direction', async () => {
  const { directions } = readData('short_crested').summary;
  const columns = directions.angle.length - 1;
  const page = await open('short_crested');
  const csv = await download(page, () => page.click('#directions button[aria-label^="Save the data"]'), 'directions.csv');
  const rows = csv.toString().trimEnd().split('\r\n').slice(1).map((line) => line.split(','));
  assert.equal(rows.length, (directions.variance.length + 1) * columns);
  const total = (some) => some.reduce((sum, row) => sum + Number(row[4]), 0);
  const expected = directions.variance.flat().reduce((sum, value) => sum + (value ?? 0), 0);
  assert.ok(Math.abs(total(rows.slice(0, -columns)) - expected) < 1e-9 * expected);
  assert.ok(Math.abs(total(rows.slice(-columns)) - expected) < 1e-9 * expected);
});
