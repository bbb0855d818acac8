// Every page opens fast, by itself and without a complaint.
import assert from 'node:assert/strict';
import { statSync } from 'node:fs';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { closeBrowser, open, showAll } from './support/browser.mjs';
import { pages } from './support/folders.mjs';
import { allPixels } from './support/pixels.mjs';

after(closeBrowser);

const names = ['short_crested', 'focused_group', 'crossed_seas', 'beach_jonswap', 'thousand', 'looks', 'flume_field',
  'hostile', 'nan_in_points', 'one_sample', 'one_place', 'hostile_results'];

for (const name of names) {
  test(`${name} opens without errors and requests`, async () => {
    const page = await open(name);
    console.log(`${name}: ready after ${page.readyAfter.toFixed(0)} ms`);
    // It takes below 1 s on an idle machine.
    assert.ok(page.readyAfter < 5000, `ready after ${page.readyAfter} ms`);
    await showAll(page);
    assert.deepEqual(page.problems, []);
    assert.deepEqual(await page.$$eval('.failure', (all) => all.map((part) => part.textContent)), []);
    await page.close();
  });

  test(`every canvas of ${name} is drawn on`, async () => {
    const page = await open(name, { height: 6000 });
    await showAll(page);
    const canvases = await allPixels(page);
    assert.ok(canvases.length > 0);
    for (const { where, width, height, colours } of canvases) {
      assert.ok(width > 0 && height > 0, where);
      assert.ok(colours > 2, `${where} has ${colours} colours`);
    }
    await page.close();
  });
}

test('the largest example stays below 5 MB', () => {
  for (const name of ['short_crested', 'focused_group', 'crossed_seas', 'beach_jonswap']) {
    const { size } = statSync(join(pages, `${name}.html`));
    assert.ok(size < 5e6, `${name} has ${size} bytes`);
  }
});
