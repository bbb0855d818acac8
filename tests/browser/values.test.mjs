// The numbers that charts say, against what the job asks for.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled, showAll } from './support/browser.mjs';
import { readData, writeChanged } from './support/page_data.mjs';

after(closeBrowser);

const whole = { width: 1280, height: 6000 };

async function opened(name) {
  const page = await open(name, whole);
  await showAll(page);
  return page;
}

// What the legend of a chart says when the mouse is at a share of its width: { x, line: text, ... }.
async function under(page, id, share) {
  await page.waitForSelector(`#${id} .u-over`);
  const { x, y, width, height } = await (await page.$(`#${id} .u-over`)).boundingBox();
  await page.mouse.move(x + share * width, y + height / 2);
  await settled(page);
  return page.$eval(`#${id} .legend`, (legend) => ({
    x: parseFloat(/[−\d.]+ \S+$/.exec(legend.querySelector('.legend-place').textContent)[0].replace('−', '-')),
    ...Object.fromEntries([...legend.querySelectorAll('.legend-item')].map((item) => [
      item.querySelector('.legend-name').textContent,
      item.querySelector('.legend-value').textContent,
    ])),
  }));
}

const number = (text) => parseFloat(text.replace('−', '-'));

test('the depth is right between the places of the profile', async () => {
  const page = await opened('beach_jonswap');
  for (const share of [0.2, 0.8, 0.9, 0.95]) {
    const { x, bed } = await under(page, 'depth', share);
    const depth = x < 18.5 ? 0.7 : 0.7 - (x - 18.5) / 10; // the toe and the slope of the site
    assert.ok(Math.abs(number(bed) + depth) < 0.003, `${bed} at x ${x} m instead of ${depth} m deep`);
  }
});

test('paddles and points have a value only where they stand', async () => {
  const page = await opened('beach_jonswap');
  const away = await under(page, 'depth', 0.6); // 15 m; the paddle is at 0, the points at 9 m and 22 m
  assert.deepEqual([away.paddles, away.points], ['–', '–']);
  assert.equal((await under(page, 'depth', 0.88)).points, '0 m');
});

test('a sine wave has a value only at its frequency', async () => {
  const { spectrum, run } = readData('thousand').summary;
  const [line] = spectrum.lines;
  const page = await opened('thousand');
  assert.equal((await under(page, 'spectrum', 0.95))['sine waves asked'], '–');
  const { width } = await (await page.$('#spectrum .u-over')).boundingBox();
  // Goes over the chart in steps of 3 pixels until the wave is near.
  let found;
  for (let at = 0; at < width && !found; at += 3) {
    const seen = await under(page, 'spectrum', at / width);
    if (seen['sine waves asked'] !== '–') found = seen;
  }
  assert.ok(Math.abs(found.x - line.f) < 0.05, `${found.x} Hz`);
  // Its variance a^2 / 2 over one band, in cm2/Hz.
  const density = (1e4 * 0.02 ** 2) / 2 / (spectrum.harmonics / run.repeat);
  assert.ok(Math.abs(number(found['sine waves asked']) - density) < 0.006 * density, found['sine waves asked']);
});

test('the heat map changes its colour where the value under the mouse changes', async () => {
  const page = await opened('crossed_seas');
  await page.evaluate(() => (location.hash = '#t=10&from=10.00&to=10.50')); // 16 samples
  await settled(page);
  const map = await page.waitForSelector('#drive-1-map .map-host canvas');
  const { x, y, width, height } = await map.boundingBox();
  const seen = [];
  for (let i = 0; i < 48; ++i) {
    const at = Math.round(58 + ((i + 0.5) / 48) * (width - 150)); // between the axis and the colour bar
    await page.mouse.move(x + at, y + 0.4 * height);
    await settled(page);
    const text = await page.$eval('#drive-1-map .readout', (line) => line.textContent.split('; ')[2]);
    const pixel = [at, Math.round(0.4 * height)];
    seen.push([text, await map.evaluate((canvas, place) => canvas.getContext('2d').getImageData(...place, 1, 1).data.join(' '), pixel)]);
  }
  const changes = (j) => seen.slice(1).map((one, i) => one[j] !== seen[i][j]);
  const [values, colours] = [changes(0), changes(1)];
  assert.ok(values.filter(Boolean).length > 10, seen.join(' '));
  // Neighbours may be too near each other for two colours.
  assert.ok(values.filter((change, i) => change !== colours[i]).length <= 3, seen.join(' '));
});

test('texts have a true minus, files a hyphen', async () => {
  const page = await opened('focused_group');
  const texts = await page.$$eval('.caption, .head, .findings, .legend, .readout', (all) => all.map((one) => one.textContent));
  for (const text of texts) assert.ok(!/(^|[\s(])-[\d.]/.test(text), text);
  assert.ok(texts.some((text) => text.includes('to') && /−\d/.test(text)));
  const criteria = await page.$$eval('.findings td', (cells) => cells.map((cell) => cell.textContent));
  assert.ok(criteria.includes('−11.7\u00a0deg'), criteria.join('|'));
});

test('directions on both sides of 180 degrees are near each other', async () => {
  writeChanged('thousand', 'astern', (data) => {
    const direction = data.summary.findings.find(({ key }) => key === 'direction');
    Object.assign(direction, { asked: (179 * Math.PI) / 180, made: (-179.5 * Math.PI) / 180 });
  });
  const page = await open('astern');
  const difference = await page.$$eval('.findings tr', (rows) =>
    rows.find((row) => row.querySelector('.of-quantity')?.textContent.startsWith('direction'))?.querySelector('.of-difference').textContent);
  assert.equal(difference.replace('\u00a0', ' '), '+1.5 deg');
  assert.ok(!(await page.$eval('#plan .caption', (line) => line.textContent)).includes('dashed'));
});
