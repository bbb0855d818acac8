// Light, dark and paper.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled, showAll } from './support/browser.mjs';
import { contrasts } from './support/contrast.mjs';
import { allPixels } from './support/pixels.mjs';

after(closeBrowser);

const lightness = (page) =>
  page.evaluate(() => {
    const [r, g, b] = getComputedStyle(document.body).backgroundColor.match(/\d+/g).map(Number);
    return (r + g + b) / 3;
  });

test('paper is light in the light scheme and dark in the dark one', async () => {
  assert.ok((await lightness(await open('focused_group', { scheme: 'light' }))) > 230);
  assert.ok((await lightness(await open('focused_group', { scheme: 'dark' }))) < 50);
});

for (const scheme of ['light', 'dark']) {
  for (const name of ['crossed_seas', 'looks']) {
    test(`texts of ${name} have a contrast of 4.5 in the ${scheme} scheme`, async () => {
      const page = await open(name, { scheme });
      await showAll(page);
      const texts = await contrasts(page);
      assert.ok(texts.length > 100, `${texts.length} texts`);
      const faint = texts.filter(({ contrast }) => contrast < 4.5);
      assert.deepEqual(faint, []);
    });
  }
}

async function printing(name, scheme) {
  const page = await open(name, { scheme, width: 1000 });
  await showAll(page);
  await page.evaluate(() => window.dispatchEvent(new Event('beforeprint')));
  await page.emulateMediaType('print');
  await page.evaluate(() => new Promise((done) => setTimeout(done, 1500)));
  await settled(page);
  return page;
}

for (const scheme of ['light', 'dark']) {
  test(`paper is white and has no controls, printed from the ${scheme} scheme`, async () => {
    const page = await printing('focused_group', scheme);
    assert.equal(await lightness(page), 255);
    const controls = await page.$$eval('button, select, input', (all) =>
      all.filter((one) => one.getClientRects().length > 0).map((one) => one.outerHTML.slice(0, 80)),
    );
    assert.deepEqual(controls, []);
  });

  test(`pictures of waves are grey on paper, printed from the ${scheme} scheme`, async () => {
    const page = await printing('focused_group', scheme);
    const pictures = (await allPixels(page)).filter(({ where }) => /^(field|still-|stills)/.test(where));
    assert.ok(pictures.length >= 3 + 6, `field, stills and a strip of six: ${pictures.length}`);
    for (const { where, colours, tint } of pictures) {
      assert.ok(colours > 50, `${where} has ${colours} greys`);
      // Texts and rims may be a little blue.
      assert.ok(tint < 40, `${where} differs from grey by ${tint}`);
    }
  });
}

test('after printing the page is as before', async () => {
  const page = await printing('focused_group', 'light');
  await page.emulateMediaType('screen');
  await page.evaluate(() => window.dispatchEvent(new Event('afterprint')));
  await page.$eval('#field', (section) => section.scrollIntoView());
  await settled(page);
  await settled(page);
  const field = (await allPixels(page)).find(({ where }) => where === 'field');
  assert.ok(field.tint > 80, 'in colours again');
  const shown = await page.$eval('#field .player', (controls) => controls.getClientRects().length);
  assert.ok(shown > 0);
});
