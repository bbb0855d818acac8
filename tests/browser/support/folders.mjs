// Where the tests find and leave their files. CMake gives the build folder.
import { mkdirSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

export const root = fileURLToPath(new URL('../../..', import.meta.url));
const build = process.env.KELPBOX_BROWSER_TESTS ?? join(root, 'build/release/tests/browser');

export const pages = join(build, 'pages'); // NAME.html
export const runs = join(build, 'runs'); // NAME: what `kelpbox run` wrote
export const pictures = join(build, 'pictures');
export const saved = join(build, 'saved'); // downloads

for (const folder of [pages, runs, pictures, saved]) mkdirSync(folder, { recursive: true });
