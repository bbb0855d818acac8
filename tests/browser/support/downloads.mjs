// Files that a page saves.
import { existsSync, mkdirSync, readFileSync, rmSync } from 'node:fs';
import { join } from 'node:path';
import { saved } from './folders.mjs';

let count = 0;

// Presses a button and gives the bytes of the file `name` that it saves.
export async function download(page, press, name) {
  const folder = join(saved, `${process.pid}-${++count}`);
  rmSync(folder, { recursive: true, force: true });
  mkdirSync(folder, { recursive: true });
  const client = await page.createCDPSession();
  await client.send('Browser.setDownloadBehavior', { behavior: 'allow', downloadPath: folder, eventsEnabled: true });
  const done = new Promise((resolve, reject) => {
    const late = setTimeout(() => reject(new Error(`${name} was not saved within 20 s`)), 20000);
    client.on('Browser.downloadProgress', ({ state }) => {
      if (state !== 'completed') return;
      clearTimeout(late);
      resolve();
    });
  });
  await press();
  await done;
  const file = join(folder, name);
  if (!existsSync(file)) throw new Error(`the saved file is not called ${name}`);
  return readFileSync(file);
}

export const isPng = (bytes) => bytes.subarray(0, 8).equals(Buffer.from([137, 80, 78, 71, 13, 10, 26, 10]));

// Width and height of a PNG.
export const pngSize = (bytes) => [bytes.readUInt32BE(16), bytes.readUInt32BE(20)];
