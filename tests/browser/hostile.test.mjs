// Texts of jobs, sites, records and results never become markup or script.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, settled, showAll } from './support/browser.mjs';
import { evil, evilBare } from './support/evil.mjs';
import { readData } from './support/page_data.mjs';

after(closeBrowser);

for (const name of ['hostile', 'hostile_results']) {
  test(`no text of ${name} is run or becomes an element`, async () => {
    const page = await open(name, { height: 6000 });
    await showAll(page);
    await page.$$eval('details', (all) => all.forEach((fold) => (fold.open = true)));
    await page.$$eval('[role=tab]', (all) => all.forEach((tab) => tab.click()));
    await settled(page);
    assert.equal(await page.evaluate(() => window.pwned), undefined);
    assert.equal(await page.$$eval('img', (all) => all.length), 0);
    assert.equal(await page.$$eval('script', (all) => all.length), 2, 'the data and the script of the page');
    assert.deepEqual(page.problems, []);
    const shown = await page.$eval('body', (body) => body.innerText);
    assert.ok(shown.includes(evil), 'the text is shown as it is');
    await page.close();
  });
}

test('the hostile texts went into the page', async () => {
  const { summary, job } = readData('hostile');
  assert.equal(summary.title, evil);
  assert.equal(summary.points[0].name, evil);
  assert.equal(summary.seas[0].name, evil);
  assert.equal(summary.drive.banks[0].name, evilBare);
  assert.ok(summary.site.name.includes(evilBare));
  assert.ok(summary.inputs.some((file) => file.name.includes('<img src=x')), 'the name of the record');
  assert.ok(job.includes(evil));
});

test('the title of the window is the hostile text', async () => {
  const page = await open('hostile');
  assert.equal(await page.title(), evil);
});

test('a paddle far from the tank does not keep the page from opening', async () => {
  const page = await open('far_paddle');
  assert.ok(page.readyAfter < 5000, `${page.readyAfter} ms`);
  assert.deepEqual(page.problems, []);
  await page.close();
});
