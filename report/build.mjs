// Makes the page without its data: one HTML file with script, style and their hashes in it.
//
//   node build.mjs FILE
//
// The file has the marks {{title}} and {{data}} where `kelpbox` puts the title and the JSON.
import { createHash } from 'node:crypto';
import { writeFileSync, readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

const here = dirname(fileURLToPath(import.meta.url));
const target = process.argv[2];
if (!target) {
  console.error('usage: node build.mjs FILE');
  process.exit(2);
}

const result = await build({
  absWorkingDir: here,
  entryPoints: ['src/main.ts', 'src/style.css'],
  bundle: true,
  minify: true,
  charset: 'utf8',
  legalComments: 'inline',
  format: 'iife',
  target: ['chrome100', 'firefox115', 'safari16.4'],
  outdir: 'unused',
  write: false,
  metafile: true,
});

// The packages that become part of the page ask that their licences go with it.
const packages = new Set(
  Object.keys(result.metafile.inputs)
    .map((file) => /^node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(file)?.[1])
    .filter((name) => name !== undefined),
);
const licences = [...packages].sort().map((name) => {
  const { version } = JSON.parse(readFileSync(join(here, 'node_modules', name, 'package.json'), 'utf8'));
  return `/*! ${name} ${version}\n\n${readFileSync(join(here, 'node_modules', name, 'LICENSE'), 'utf8').trim()}\n*/\n`;
});
// Scripts import styles of their own, so there may be several.
const text = (ending) => result.outputFiles.filter((file) => file.path.endsWith(ending)).map((file) => file.text).join('\n');
const script = licences.join('') + text('.js');
const style = text('.css');
const hash = (content) => `'sha256-${createHash('sha256').update(content).digest('base64')}'`;
const policy = `default-src 'none'; script-src ${hash(script)}; style-src ${hash(style)}; img-src data: blob:`;
const page = readFileSync(join(here, 'src/page.html'), 'utf8')
  .replace('{{policy}}', () => policy)
  .replace('{{style}}', () => style)
  .replace('{{script}}', () => script);
writeFileSync(target, page);
