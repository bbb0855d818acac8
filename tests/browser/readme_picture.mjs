// Takes a picture of the first screen of a page.
//
//   node readme_picture.mjs PAGE PICTURE
import { statSync } from 'node:fs';
import { resolve } from 'node:path';
import { closeBrowser, open, settled } from './support/browser.mjs';

const most = 400e3; // bytes, of a picture in the README
const [file, picture] = process.argv.slice(2);

const page = await open(resolve(file));
// Down to the section below the table and the plan.
const height = await page.$eval('#field', (section) => Math.floor(section.getBoundingClientRect().top - 12));
await page.setViewport({ width: 1280, height });
await settled(page);
await page.screenshot({ path: picture });
await closeBrowser();
const { size } = statSync(picture);
console.log(`${picture}: ${(size / 1000).toFixed(0)} kB`);
if (page.problems.length || size > most) {
  console.error([...page.problems, size > most ? `larger than ${most / 1000} kB` : ''].join('\n'));
  process.exit(1);
}
