// Charts share what they show, and give it away.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled, showAll } from './support/browser.mjs';
import { download, isPng } from './support/downloads.mjs';
import { allPixels, pixels } from './support/pixels.mjs';

after(closeBrowser);

// A high window holds the whole page, so that every chart is drawn.
const whole = { width: 1280, height: 6000 };

async function box(page, selector) {
  await page.waitForSelector(selector);
  return (await page.$(selector)).boundingBox();
}

async function drag(page, selector, from, to) {
  const { x, y, width, height } = await box(page, selector);
  await page.mouse.move(x + from * width, y + height / 2);
  await page.mouse.down();
  for (let i = 1; i <= 8; ++i) await page.mouse.move(x + (from + ((to - from) * i) / 8) * width, y + height / 2);
  await page.mouse.up();
  await page.mouse.move(2, 2);
  await settled(page);
  await settled(page);
}

// The pictures of all charts over time: points, heat map, and the signal of the chosen paddle.
async function timeCharts(page) {
  await settled(page);
  const all = await allPixels(page);
  const found = all.filter(({ where }) => /^point|^drive-\d+-(map|signal|velocity)$/.test(where));
  return Object.fromEntries(found.map(({ where, sum }) => [where, sum]));
}

const point = '#points .u-over';
const map = '.map-host canvas';

async function opened() {
  const page = await open('focused_group', whole);
  await showAll(page);
  await page.waitForSelector(map);
  return page;
}

test('a drag in one chart zooms all charts over time, and a double click shows all again', async () => {
  const page = await opened();
  await page.mouse.move(2, 2);
  const before = await timeCharts(page);
  assert.ok(Object.keys(before).length >= 3, Object.keys(before).join(' '));
  for (const selector of [point, map]) {
    await drag(page, selector, 0.4, 0.6);
    const zoomed = await timeCharts(page);
    for (const where of Object.keys(before)) assert.notEqual(zoomed[where], before[where], `${where} after ${selector}`);
    const { x, y, width, height } = await box(page, selector);
    await page.mouse.click(x + width / 2, y + height / 2, { count: 2 });
    await page.mouse.move(2, 2);
    await settled(page);
    // Clicks in the map also choose a paddle, and so its curves are others.
    const kept = Object.keys(before).filter((where) => selector === point || !/signal|velocity/.test(where));
    const range = await timeCharts(page);
    for (const where of kept) assert.equal(range[where], before[where], `${where} after a double click`);
  }
  assert.deepEqual(page.problems, []);
});

test('a time chosen in a chart is shown by the field', async () => {
  const page = await opened();
  const { x, y, width, height } = await box(page, point);
  const repeat = 64; // s, of the example
  await page.mouse.click(x + 0.25 * width, y + height / 2);
  await settled(page);
  const shown = await page.$eval('#field output', (output) => Number.parseFloat(output.textContent));
  assert.ok(Math.abs(shown - 0.25 * repeat) < 0.5, `${shown} s`);
});

test('the heat map has many colours', async () => {
  const page = await opened();
  const { colours } = await pixels(page, '.map-host');
  assert.ok(colours > 100, `${colours} colours`);
});

test('tabs show one bank each', async () => {
  const page = await open('crossed_seas', whole);
  await showAll(page);
  const tabs = await page.$$('#drive [role=tab]');
  assert.equal(tabs.length, 2);
  const shownPanel = () => page.$$eval('#drive [role=tabpanel]', (all) => all.map((panel) => !panel.hidden));
  assert.deepEqual(await shownPanel(), [true, false]);
  await tabs[1].click();
  assert.deepEqual(await shownPanel(), [false, true]);
  await page.keyboard.press('ArrowLeft');
  assert.deepEqual(await shownPanel(), [true, false]);
});

// The buttons that save something, in the order of the page.
function saveButtons(page) {
  return page.$$eval('button[aria-label^="Save"]', (all) =>
    all.map((one, i) => {
      one.dataset.save = String(i);
      return `${one.closest('section').id}.${one.textContent.toLowerCase()}`;
    }),
  );
}

test('every button for a picture or a table saves one', async () => {
  const atOnce = 8; // a browser takes only some files from one page before it asks
  let page = await opened();
  const names = await saveButtons(page);
  assert.ok(names.length >= 20, `${names.length} buttons`);
  for (const [i, name] of names.entries()) {
    if (i > 0 && i % atOnce === 0) {
      assert.deepEqual(page.problems, []);
      await page.close();
      page = await opened();
      assert.deepEqual(await saveButtons(page), names);
    }
    const bytes = await download(page, () => page.$eval(`[data-save="${i}"]`, (one) => one.click()), name);
    if (name.endsWith('.png')) {
      assert.ok(isPng(bytes), name);
      continue;
    }
    const [head, first] = bytes.toString().split(/\r?\n/);
    assert.ok(head.includes(','), `${name}: ${head}`);
    assert.ok(/\d/.test(first), `${name}: ${first}`);
  }
  assert.deepEqual(page.problems, []);
});
