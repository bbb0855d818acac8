// The page for those who do not see it, or use no mouse.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, showAll } from './support/browser.mjs';

after(closeBrowser);

for (const name of ['short_crested', 'crossed_seas', 'thousand', 'looks', 'one_sample']) {
  test(`every canvas of ${name} is told in words with numbers`, async () => {
    const page = await open(name, { height: 6000 });
    await showAll(page);
    const canvases = await page.$$eval('canvas', (all) =>
      all.map((canvas) => {
        const described = canvas.closest('[aria-describedby]');
        const ids = described?.getAttribute('aria-describedby').split(' ') ?? [];
        const words = [canvas.getAttribute('aria-label') ?? '', ...ids.map((id) => document.getElementById(id)?.textContent ?? '')];
        return { where: canvas.closest('section')?.id ?? '', words: words.join(' ').trim() };
      }),
    );
    assert.ok(canvases.length > 3);
    for (const { where, words } of canvases) assert.match(words, /\d/, `${where}: "${words}"`);
  });
}

test('every control has a name, and ids are unique', async () => {
  const page = await open('crossed_seas', { height: 6000 });
  await showAll(page);
  const nameless = await page.$$eval('button, select, input, summary, [role=application]', (all) =>
    all
      .filter((one) => !(one.getAttribute('aria-label') || one.labels?.[0]?.textContent || one.textContent.trim()))
      .map((one) => one.outerHTML),
  );
  assert.deepEqual(nameless, []);
  const ids = await page.$$eval('[id]', (all) => all.map((one) => one.id));
  assert.deepEqual(ids.filter((id, i) => ids.indexOf(id) !== i), []);
});

test('the Tab key reaches the player, every chart and every button', async () => {
  const page = await open('focused_group', { height: 6000 });
  await showAll(page);
  const wanted = await page.$$eval('button, select, input, a[href], summary, canvas[tabindex="0"], [role=application]', (all) => {
    const shown = all.filter((one) => one.getClientRects().length > 0 && one.tabIndex >= 0 && !one.disabled);
    shown.forEach((one, i) => (one.dataset.stop = String(i)));
    return shown.length;
  });
  const reached = new Set();
  for (let i = 0; i < wanted + 20; ++i) {
    await page.keyboard.press('Tab');
    const stop = await page.evaluate(() => document.activeElement?.dataset.stop);
    if (stop !== undefined) reached.add(stop);
  }
  assert.equal(reached.size, wanted);
});

test('arrow keys move the time of a chart', async () => {
  const page = await open('focused_group', { height: 6000 });
  await showAll(page);
  const time = () => page.$eval('#field output', (output) => Number.parseFloat(output.textContent));
  await page.focus('#points [role=application]');
  await page.keyboard.press('Home');
  await page.keyboard.press('ArrowRight');
  await page.keyboard.press('ArrowRight');
  await page.evaluate(() => new Promise((done) => setTimeout(done, 200)));
  const shown = await time();
  assert.ok(shown > 0 && shown < 5, `${shown} s`);
});
