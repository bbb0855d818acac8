// Opens pages in the browser, and notes everything that a page should not do.
import { createRequire } from 'node:module';
import { resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { pages } from './folders.mjs';

const puppeteer = createRequire(new URL('../../../report/package.json', import.meta.url))('puppeteer-core');

let browser;

export async function closeBrowser() {
  await browser?.close();
  browser = undefined;
}

async function theBrowser() {
  browser ??= await puppeteer.launch({
    executablePath: process.env.KELPBOX_BROWSER ?? '/usr/bin/chromium-headless-shell',
    headless: 'shell',
    args: ['--no-sandbox', '--disable-gpu'],
  });
  return browser;
}

// Opens a page by its name in the folder of pages, or a file by its path. Gives the page when it is
// ready, with `problems` (messages of the console, errors, requests) and `readyAfter` in ms.
export async function open(name, { width = 1280, height = 800, scheme = 'light', motion = 'no-preference' } = {}) {
  const page = await (await theBrowser()).newPage();
  await page.setViewport({ width, height });
  await page.emulateMediaFeatures([
    { name: 'prefers-color-scheme', value: scheme },
    { name: 'prefers-reduced-motion', value: motion },
  ]);
  const file = pathToFileURL(resolve(pages, name.endsWith('.html') ? name : `${name}.html`)).href;
  page.problems = [];
  page.on('console', (message) => page.problems.push(`${message.type()}: ${message.text()}`));
  page.on('pageerror', (error) => page.problems.push(`error: ${error.message}`));
  page.on('dialog', (dialog) => {
    page.problems.push(`dialog: ${dialog.message()}`);
    void dialog.dismiss();
  });
  // Requests of the page to itself are its own pictures and files.
  page.on('request', (request) => {
    if (request.url() !== file && !/^(data|blob):/.test(request.url())) page.problems.push(`request: ${request.url()}`);
  });
  const before = performance.now();
  await page.goto(file);
  await page.waitForFunction('document.documentElement.dataset.ready === "true"', { timeout: 60000 });
  page.readyAfter = performance.now() - before;
  await settled(page);
  return page;
}

// Waits until the charts have drawn what was changed last.
export async function settled(page) {
  await page.evaluate(
    () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(done, 50)))),
  );
}

// Scrolls through the page until all charts are there: those far down are drawn when they come near.
export async function showAll(page) {
  let before = -1;
  for (let round = 0; round < 20; ++round) {
    const now = await page.evaluate(async () => {
      for (let y = 0; y < document.documentElement.scrollHeight; y += 400) {
        window.scrollTo(0, y);
        await new Promise((done) => setTimeout(done, 30));
      }
      window.scrollTo(0, 0);
      return document.querySelectorAll('canvas').length;
    });
    if (now === before) return;
    before = now;
    await settled(page);
  }
  throw new Error('the page adds charts without end');
}
