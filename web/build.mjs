// Bundles the npm package and the page: node build.mjs MODULE OUT. MODULE is the compressed module, ktl.wasm.lzma.
import { createHash } from 'node:crypto';
import { copyFileSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';
import * as esbuild from 'esbuild';

const [module, out] = process.argv.slice(2);
const here = dirname(fileURLToPath(import.meta.url));

/** The module's bytes as the text that `import text from 'ktl-module'` gives. */
const embedModule = {
    name: 'ktl-module',
    setup(build) {
        build.onResolve({ filter: /^ktl-module$/ }, () => ({ path: module, namespace: 'ktl-module' }));
        build.onLoad({ filter: /.*/, namespace: 'ktl-module' }, () => ({
            contents: `export default '${readFileSync(module).toString('base64')}';`,
        }));
    },
};

const common = {
    bundle: true,
    write: false,
    minify: true,
    charset: 'utf8',
    target: 'es2022',
    legalComments: 'none',
    alias: {
        'ktl-steam': join(here, 'package/src/index.ts'),
        'd3-format': join(here, 'page/d3/format.js'),
        'd3-interpolate': join(here, 'page/d3/interpolate.js'),
        'd3-transition': join(here, 'page/d3/transition.js'),
    },
    loader: { '.csv': 'text' },
    plugins: [embedModule],
};

async function bundle(entry, options) {
    const result = await esbuild.build({ ...common, ...options, entryPoints: [join(here, entry)] });
    return result.outputFiles[0].text;
}

function write(name, text) {
    writeFileSync(join(out, name), text);
    const size = Buffer.byteLength(text);
    console.log(`${name}: ${size} bytes, ${gzipSync(text, { level: 9 }).length} compressed by gzip`);
}

mkdirSync(join(out, 'package'), { recursive: true });
write('package/ktl.js', await bundle('package/src/index.ts', { format: 'esm' }));
for (const name of ['package.json', 'README.md']) copyFileSync(join(here, 'package', name), join(out, 'package', name));
copyFileSync(join(here, '../LICENSE'), join(out, 'package/LICENSE'));

const script = (await bundle('page/main.ts', { format: 'iife' })).trim().replaceAll('</script', '<\\/script');
const style = (await bundle('page/style.css', { loader: { '.css': 'css' } })).trim();
const hash = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
// Nothing is fetched and nothing is sent; workers are made of the page's own script, as blob: addresses.
const policy = [
    "default-src 'none'",
    `script-src ${hash(script)} 'wasm-unsafe-eval'`,
    `style-src ${hash(style)}`,
    'worker-src blob:',
    'img-src data:',
    "base-uri 'none'",
    "form-action 'none'",
].join('; ');
const page = readFileSync(join(here, 'page/page.html'), 'utf8')
    .replace('{policy}', policy)
    .replace('{style}', () => style)
    .replace('{script}', () => script);
write('ktl.html', page);
