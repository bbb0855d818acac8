// The words around names and numbers.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';
import { closeBrowser, open, showAll } from './support/browser.mjs';
import { readData } from './support/page_data.mjs';
import { turning } from './support/changed_pages.mjs';

after(closeBrowser);

const textOf = (page, selector) => page.$eval(selector, (found) => found.textContent);

test('the statistics of a point have plain names, and the height of the highest wave is no amplitude', async () => {
  const { statistics } = readData('short_crested').summary.points[0];
  const page = await open('short_crested', { height: 6000 });
  await showAll(page);
  const rows = await page.$$eval('.point-table tr', (all) => all.map((row) => [row.cells[0].textContent, row.cells[1].textContent]));
  const highest = rows.find(([name]) => name === 'highest wave');
  assert.equal(highest[1], `${Math.round(statistics.max_amp.value * 1000)} mm`);
  for (const [name] of rows) assert.doesNotMatch(name, /_|^Var$/);
});

test('one harmonic, one front and one file are counted in the singular', async () => {
  const { spectrum, run } = readData('one_of_each').summary;
  assert.equal(spectrum.harmonics, 1);
  assert.equal(run.fronts, 1);
  const page = await open('one_of_each', { height: 6000 });
  await showAll(page);
  const text = await textOf(page, 'main');
  assert.doesNotMatch(text, /\b1 (harmonics|fronts|frames|samples|findings|files|more findings)\b/);
  assert.ok(text.includes('1 front'));
});

test('a name cannot reorder the words and numbers around it', async () => {
  const page = await open('turned_names', { height: 6000 });
  await showAll(page);
  const shown = (await page.title()) + (await page.$eval('body', (body) => body.innerText));
  assert.ok(shown.includes('[U+202E]reversed'), 'the character is seen by its code');
  for (const character of turning) assert.ok(!(await textOf(page, 'main')).includes(character), character.codePointAt(0).toString(16));
});
