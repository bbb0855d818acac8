// What is read first: the verdict, the table of findings, the plan of the tank.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled } from './support/browser.mjs';
import { download } from './support/downloads.mjs';
import { readData, unpack } from './support/page_data.mjs';
import { pixels } from './support/pixels.mjs';

after(closeBrowser);

const textOf = (page, selector) => page.$eval(selector, (found) => found.textContent);
const rowsOf = (page, selector) =>
  page.$$eval(`${selector} tbody tr:not(.group)`, (rows) =>
    rows.map((row) => ({ name: row.cells[0].firstChild.textContent, verdict: row.cells[5].textContent })),
  );
const readoutOf = async (page) => {
  const text = await textOf(page, '#plan .readout');
  const found = /^x (-?[\d.]+) m {3}y (-?[\d.]+) m {3}depth [\d.]+ m?m(?: {3}height ([+−]\d+) mm at ([\d.]+) s)?$/.exec(text);
  assert.ok(found, text);
  return { x: Number(found[1]), y: Number(found[2]), height: Number(found[3]?.replace('−', '-')) / 1000, time: Number(found[4]) };
};

test('a run without faults is called made', async () => {
  const { judged, looks } = readData('focused_group').summary;
  assert.equal(looks, 0);
  const page = await open('focused_group');
  assert.equal(await textOf(page, '.verdict'), `✓Everything asked for is made. All ${judged} findings are good.`);
  assert.equal((await page.$$('.is-bad')).length, 0);
});

test('a run with faults names them, and they stand first in the table', async () => {
  const { judged, looks, findings } = readData('looks').summary;
  const faults = findings.filter((finding) => finding.verdict === 'look').map((finding) => finding.quantity);
  assert.ok(looks > 0 && faults.length === looks);
  const page = await open('looks');
  const verdict = await textOf(page, '.verdict');
  assert.ok(verdict.startsWith(`▲${looks} of ${judged} findings need`), verdict);
  for (const name of faults.slice(0, 4)) assert.ok(verdict.includes(name), name);
  const rows = await rowsOf(page, '#findings');
  assert.deepEqual(rows.slice(0, looks).map((row) => row.name), faults);
  rows.forEach((row, i) => assert.match(row.verdict, i < looks ? /^▲(LOOK|HIGH|LOST|FEW)$/ : /^(✓good)?$/));
});

test('every finding is in a table, and in the saved one', async () => {
  const { findings } = readData('short_crested').summary;
  const page = await open('short_crested');
  const shown = [...(await rowsOf(page, '#findings')), ...(await rowsOf(page, '.more-findings'))];
  assert.deepEqual(shown.map((row) => row.name).sort(), findings.map((finding) => finding.quantity).sort());
  const csv = await download(page, () => page.click('#findings button'), 'findings.csv');
  const lines = csv.toString().trimEnd().split('\r\n');
  assert.equal(lines.length, findings.length + 1);
  assert.equal(lines[0], 'group,quantity,units,asked,made,criterion,verdict,remark');
});

test('verdict, table and plan fit the screen of a laptop', async () => {
  const page = await open('short_crested', { width: 1280, height: 800 });
  const bottom = (selector) => page.$eval(selector, (found) => found.getBoundingClientRect().bottom);
  for (const selector of ['.verdict', '#findings table', '#plan canvas']) {
    assert.ok((await bottom(selector)) <= 800, `${selector} ends at ${await bottom(selector)}`);
  }
});

test('no size of the screen has to be scrolled sideways', async () => {
  for (const width of [420, 800, 1280, 1920]) {
    const page = await open('focused_group', { width });
    const [page_, screen] = await page.evaluate(() => [document.documentElement.scrollWidth, window.innerWidth]);
    assert.ok(page_ <= screen, `${page_} at ${width}`);
    await page.close();
  }
});

test('the plan shows place, depth and height under the pointer', async () => {
  const { field } = readData('focused_group');
  const page = await open('focused_group');
  const box = await (await page.$('#plan canvas')).boundingBox();
  await page.mouse.move(box.x + 0.4 * box.width, box.y + 0.4 * box.height);
  const { x, y, height, time } = await readoutOf(page);
  const { counts, shape, step } = unpack(field.eta);
  const frame = Math.round((time - field.start) * field.rate);
  const [column, row] = [(x - field.x.from) / field.x.step, (y - field.y.from) / field.y.step];
  // Between the lowest and the highest of the four points around, with some room for the curve.
  const around = [0, 1].flatMap((i) =>
    [0, 1].map((j) => counts[(frame * shape[1] + Math.floor(row) + j) * shape[2] + Math.floor(column) + i] * step),
  );
  const room = 0.1 * Math.max(field.highest, -field.lowest);
  assert.ok(height > Math.min(...around) - room && height < Math.max(...around) + room, `${height} of ${around}`);
  await page.mouse.move(box.x + 0.6 * box.width, box.y + 0.3 * box.height);
  const next = await readoutOf(page);
  assert.ok(next.x > x && next.y > y, 'x grows to the right, y upwards');
});

test('arrow keys move over the plan', async () => {
  const { x } = readData('short_crested').summary.plan;
  const page = await open('short_crested');
  await page.focus('#plan canvas');
  await page.keyboard.press('ArrowRight');
  const first = await readoutOf(page);
  assert.ok(Math.abs(first.x - (x[0] + 0.51 * (x[1] - x[0]))) < 0.01, 'one hundredth from the middle');
  await page.keyboard.press('ArrowUp');
  assert.ok((await readoutOf(page)).y > first.y);
  await page.keyboard.press('Escape');
  assert.equal(await textOf(page, '#plan .readout'), '');
});

test('the plan follows the time in the address', async () => {
  const page = await open('short_crested');
  const before = await pixels(page, '#plan');
  await page.evaluate(() => (location.hash = '#t=150'));
  await settled(page);
  assert.match(await textOf(page, '#plan .caption'), /Waves at 150\.0 s/);
  assert.notEqual((await pixels(page, '#plan')).sum, before.sum);
});

test('without a wave field the plan is called a sketch', async () => {
  assert.equal(readData('beach_jonswap').field, undefined);
  const page = await open('beach_jonswap');
  assert.match(await textOf(page, '#plan .caption'), /sketch only/);
  assert.ok((await pixels(page, '#plan')).tint > 40, 'blue lines');
});

test('paper is white and without colours in the water, in the dark scheme too', async () => {
  const page = await open('short_crested', { scheme: 'dark' });
  const dark = await pixels(page, '#plan');
  await page.evaluate(() =>
    window.addEventListener('beforeprint', () => {
      const canvas = document.querySelector('#plan canvas');
      const { data } = canvas.getContext('2d').getImageData(0.6 * canvas.width, 0.3 * canvas.height, 1, 1);
      const closed = document.querySelectorAll('details:not([open])').length;
      window.paper = { ground: getComputedStyle(document.body).backgroundColor, water: [...data], closed };
    }),
  );
  await page.pdf();
  const { ground, water, closed } = await page.evaluate(() => window.paper);
  assert.equal(ground, 'rgb(255, 255, 255)');
  assert.equal(closed, 0);
  assert.ok(Math.max(...water.slice(0, 3)) - Math.min(...water.slice(0, 3)) <= 3, `${water}`);
  await settled(page);
  assert.equal((await page.$$('details[open]')).length, 0, 'folds close again');
  assert.equal((await pixels(page, '#plan')).sum, dark.sum, 'the screen is as before');
});
