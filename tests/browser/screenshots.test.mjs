// Pictures of the page at three sizes, in both schemes and on paper, kept for people to look at.
import assert from 'node:assert/strict';
import { statSync } from 'node:fs';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { closeBrowser, open, showAll } from './support/browser.mjs';
import { pictures } from './support/folders.mjs';

after(closeBrowser);

const sizes = [[420, 900], [1280, 800], [1920, 1080]];

for (const name of ['short_crested', 'crossed_seas', 'looks']) {
  for (const [width, height] of sizes) {
    for (const scheme of ['light', 'dark']) {
      test(`${name} fits into ${width} x ${height}, ${scheme}`, async () => {
        const page = await open(name, { width, height, scheme });
        await showAll(page);
        const wide = await page.evaluate(() => document.documentElement.scrollWidth);
        assert.ok(wide <= width, `${wide} pixels wide`);
        const file = join(pictures, `${name}-${width}-${scheme}`);
        await page.screenshot({ path: `${file}.png` });
        await page.screenshot({ path: `${file}-all.png`, fullPage: true });
        assert.ok(statSync(`${file}-all.png`).size > 50000);
        await page.close();
      });
    }
  }

  test(`${name} is printed`, async () => {
    const page = await open(name);
    await showAll(page);
    const file = join(pictures, `${name}.pdf`);
    await page.pdf({ path: file, format: 'A4', printBackground: true });
    assert.ok(statSync(file).size > 50000);
    assert.deepEqual(page.problems, []);
    await page.close();
  });
}

test('the first screen of a laptop has verdict, table and plan', async () => {
  const page = await open('short_crested');
  const seen = await page.evaluate(() =>
    ['.verdict', '#findings table', '#plan canvas'].map((selector) => {
      const box = document.querySelector(selector).getBoundingClientRect();
      return box.top >= 0 && box.top < 500 && box.width > 0;
    }),
  );
  assert.deepEqual(seen, [true, true, true]);
});
