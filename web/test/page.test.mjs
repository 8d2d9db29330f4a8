// The page in Chromium, from disk and from a server, as a person uses it. Pictures are kept in build/web/pictures.
import assert from 'node:assert/strict';
import { readFileSync, statSync } from 'node:fs';
import { createRequire } from 'node:module';
import { after, before, test } from 'node:test';
import { gzipSync } from 'node:zlib';
import { file, launch, open, out, pictures, serve } from './browser.mjs';

let browser;
before(async () => (browser = await launch()));
after(() => browser?.close());

const phone = { viewport: { width: 360, height: 740 }, hasTouch: true, isMobile: true, deviceScaleFactor: 2 };
const type = (page, field, text) => page.fill(field, text);
const cell = (page, name) =>
    page.locator(`#state-table tr:has(th:text-is("${name}")) td.number`).first().textContent();

/** Runs steps on a page that must end without a fault in the console. */
async function on(address, options, steps) {
    const { page, faults, close } = await open(browser, address, options);
    try {
        await steps(page);
        assert.deepEqual(faults, []);
    } finally {
        await close();
    }
}

test('the file is small and allows nothing from outside', () => {
    const html = readFileSync(`${out}ktl.html`);
    assert.ok(html.length < 600_000, `${html.length} bytes`);
    assert.ok(gzipSync(html, { level: 9 }).length < 250_000, `${gzipSync(html, { level: 9 }).length} bytes compressed`);
    const text = html.toString();
    assert.match(text, /Content-Security-Policy" content="default-src 'none'; script-src 'sha256-/);
    assert.doesNotMatch(text.slice(0, text.indexOf('<script>')), /(src|href)="(?!data:)/);
});

test('two values give every property, with units, decimal comma and blanks', () =>
    on(file, {}, async (page) => {
        assert.equal(await cell(page, 'temperature'), '322.9694');
        await type(page, '#first', '16,5 MPa');
        await type(page, '#second', '3 400');
        assert.equal(await cell(page, 'pressure'), '165.0000');
        assert.match(page.url(), /#ph=165,3400$/);
        await page.selectOption('#pair', 'pt');
        assert.match(await page.inputValue('#second'), /^\d+\.\d+ °C$/);
        await type(page, '#second', '811.15 K');
        assert.equal(await cell(page, 'temperature'), '538.0000');
        await page.screenshot({ path: `${pictures}state.png` });
        await page.click('#language');
        assert.equal(await page.locator('#state-title').textContent(), 'Dampf');
        assert.equal(await cell(page, 'Temperatur'), '538,0000');
    }));

test('an address holds the state, and every part of it may be wrong', () =>
    on(file + '#px=10,0.5', {}, async (page) => {
        assert.equal(await page.locator('#state-table thead .number').count(), 3);
        await page.screenshot({ path: `${pictures}mixture.png` });
        await on(page.url(), {}, async (other) => assert.equal(await cell(other, 'vapour quality'), '0.5000000'));
        await page.goto(file + '#pv=10,0.0009995976690369184');
        assert.equal(await page.locator('#several button').count(), 2);
        const first = await cell(page, 'temperature');
        await page.locator('#several button').nth(1).click();
        assert.notEqual(await cell(page, 'temperature'), first);
        assert.match(page.url(), /\/1$/);
        for (const bad of ['#zz=1,2', '#ph=1', '#%', '#ph=<b>,2', '#ph=%E0%A4%A,1', '#' + 'x'.repeat(5000)]) {
            await page.goto(file + bad);
            const told = (await page.locator('#state-message').textContent()) + (await page.locator('#first-fault').textContent());
            assert.ok(told.length > 5, `${bad}: ${told}`);
        }
        await page.goto(file + '#pt=1001,20');
        assert.equal(await page.locator('#state-message').textContent(), 'The pressure is above 1000 bar.');
    }));

test('faults are told beside the field', () =>
    on(file, {}, async (page) => {
        for (const [text, words] of [['', 'empty'], ['abc', 'not a number'], ['5 barg', 'gauge'], ['1,2,3', 'decimal mark'], ['9'.repeat(3000), 'large']]) {
            await type(page, '#first', text);
            const told = await page.locator('#first-fault').textContent();
            assert.ok(told.includes(words), `${text.slice(0, 20)}: ${told}`);
            assert.equal(await page.getAttribute('#first', 'aria-invalid'), 'true');
        }
        await type(page, '#first', '99 barg');
        await type(page, '#atmosphere', '1.013');
        assert.equal(await cell(page, 'pressure'), '100.0130');
        assert.ok(await page.locator('#first-fault').isHidden());
    }));

test('the keyboard alone reaches the tabs and pins a state', () =>
    on(file, {}, async (page) => {
        await page.focus('#tab-state');
        await page.keyboard.press('ArrowRight');
        assert.ok(await page.locator('#chart').isVisible());
        await page.waitForFunction(() => document.querySelectorAll('#frame .tick').length > 4);
        await page.focus('#frame');
        for (const key of ['ArrowRight', 'ArrowUp', 'Enter']) await page.keyboard.press(key);
        assert.equal(await page.locator('#pins tbody tr').count(), 1);
        const [left, right] = (await page.getAttribute('#frame', 'data-window')).split(' ').map(Number);
        await page.keyboard.press('+');
        const zoomed = (await page.getAttribute('#frame', 'data-window')).split(' ').map(Number);
        assert.ok(zoomed[1] - zoomed[0] < 0.7 * (right - left));
        await page.keyboard.press('0');
        assert.equal(Number((await page.getAttribute('#frame', 'data-window')).split(' ')[0]).toFixed(6), left.toFixed(6));
    }));

test('the chart is pointed at, zoomed smoothly, pinned and joined to a process', () =>
    on(file + '#chart', {}, async (page) => {
        await page.waitForFunction(() => document.querySelectorAll('#frame .tick').length > 4);
        const box = await page.locator('#frame').boundingBox();
        await page.mouse.move(box.x + 0.5 * box.width, box.y + 0.3 * box.height);
        assert.match(await page.locator('#pointer-state').textContent(), /p\d/);
        await page.mouse.click(box.x + 0.35 * box.width, box.y + 0.3 * box.height);
        await type(page, '#step-pressure', '0.05 bar');
        await type(page, '#step-efficiency', '87,5');
        await page.click('#step-form button');
        assert.equal(await page.locator('#pins tbody tr').count(), 2);
        assert.equal(await page.locator('#pins tbody tr').nth(1).locator('td').nth(7).textContent(), '87.50');
        await type(page, '#step-efficiency', '120');
        await page.click('#step-form button');
        assert.match(await page.locator('#step-fault').textContent(), /efficiency/);
        await page.screenshot({ path: `${pictures}chart.png` });
        const frames = await measureFrames(page, box);
        console.log(`frames: ${frames.count}, median ${frames.median} ms, 95 % ${frames.most95} ms, drawing at most ${frames.drawing} ms`);
        assert.ok(frames.count > 20);
        assert.ok(frames.drawn < 16, `drawing a frame took ${frames.drawn} ms`);
        for (const kind of ['ts', 'ph', 'pv']) {
            await page.selectOption('#chart-kind', kind);
            await page.waitForTimeout(700);
            await page.screenshot({ path: `${pictures}chart-${kind}.png` });
            await page.mouse.move(box.x + 0.55 * box.width, box.y + 0.5 * box.height);
            assert.match(await page.locator('#pointer-state').textContent(), /p[\d.]+/);
        }
    }));

/** Wheel and drag for a while; the times between frames, and of the page's own work in each of them. */
async function measureFrames(page, box) {
    await page.evaluate(() => {
        window.frames_ = [];
        window.work_ = [];
        const request = window.requestAnimationFrame.bind(window);
        window.requestAnimationFrame = (call) => request((now) => {
            const begin = performance.now();
            call(now);
            window.work_.push(performance.now() - begin);
        });
        let last = performance.now();
        const tick = (now) => {
            window.frames_.push(now - last);
            last = now;
            request(tick);
        };
        request(tick);
    });
    const [x, y] = [box.x + 0.5 * box.width, box.y + 0.5 * box.height];
    await page.mouse.move(x, y);
    for (let i = 0; i < 20; ++i) {
        await page.mouse.wheel(0, i < 12 ? -60 : 60);
        await page.waitForTimeout(16);
    }
    await page.mouse.down();
    for (let i = 0; i < 30; ++i) await page.mouse.move(x + 4 * i, y + 2 * i);
    await page.mouse.up();
    return page.evaluate(() => {
        const sorted = (list) => [...list].sort((a, b) => a - b);
        const [frames, work] = [sorted(window.frames_), sorted(window.work_)];
        const of = (list, share) => Number((list[Math.floor(share * (list.length - 1))] ?? NaN).toFixed(1));
        return { count: frames.length, median: of(frames, 0.5), most95: of(frames, 0.95), drawing: of(work, 1), drawn: of(work, 0.95) };
    });
}

test('a property is painted, each pixel solved', () =>
    on(file + '#chart', { viewport: { width: 1500, height: 1100 } }, async (page) => {
        await page.waitForFunction(() => document.querySelectorAll('#frame .tick').length > 4);
        for (const name of ['speed_of_sound', 't']) {
            await page.selectOption('#chart-paint', name);
            await page.waitForSelector('#legend canvas', { timeout: 20_000 });
        }
        await page.waitForFunction(() => document.querySelector('#legend canvas'));
        const { solved, seconds } = await page.evaluate(() => ({ ...document.querySelector('#legend').dataset }));
        console.log(`painted: ${solved} states in ${seconds} s`);
        assert.ok(Number(solved) > 300_000);
        await page.screenshot({ path: `${pictures}chart-painted.png` });
    }));

test('a million rows are computed in a worker, and a run is cancelled', () =>
    on(file + '#table', {}, async (page) => {
        await page.click('#table-run');
        await page.waitForSelector('#table-preview:not([hidden])');
        assert.match(await page.locator('#table-preview tbody tr').nth(2).textContent(), /100.*2800.*322\.9693769/);
        await page.screenshot({ path: `${pictures}table.png` });
        await type(page, '#table-text', 'p (MPa);h\n1,0;2800\nx;3\n0,1;99999\n');
        await page.click('#table-run');
        await page.waitForFunction(() => document.querySelector('#table-bad').textContent.length > 5);
        assert.match(await page.locator('#table-bad').textContent(), /line 3: 'x' is not a number/);
        await type(page, '#table-text', 'a,b\n1,2\n');
        await page.click('#table-run');
        await page.waitForFunction(() => document.querySelector('#table-fault').textContent.length > 5);
        const lines = ['p,h'];
        for (let i = 0; i < 1_000_000; ++i) lines.push(`${1 + (i % 200)},${300 + (i % 2900)}`);
        const big = { name: 'rows.csv', mimeType: 'text/csv', buffer: Buffer.from(lines.join('\n')) };
        await page.setInputFiles('#table-file', big);
        await page.click('#table-run');
        await page.waitForFunction(() => document.querySelector('#table-progress').value > 0);
        await page.click('#table-cancel');
        await page.waitForFunction(() => document.querySelector('#table-result').textContent === 'Cancelled.');
        await page.click('#table-run');
        await page.waitForFunction(() => /1,000,000 rows/.test(document.querySelector('#table-result').textContent), null, { timeout: 60_000 });
        console.log(`table: ${await page.locator('#table-result').textContent()}`);
        const [saved] = await Promise.all([page.waitForEvent('download'), page.click('#table-download')]);
        assert.ok(statSync(await saved.path()).size > 40e6);
        const dropped = await page.evaluateHandle(() => {
            const data = new DataTransfer();
            data.items.add(new File(['t,x\n200,0.5\n'], 'wet.csv'));
            return data;
        });
        await page.dispatchEvent('#drop', 'drop', { dataTransfer: dropped });
        await page.selectOption('#table-pair', 'tx');
        await page.click('#table-run');
        await page.waitForFunction(() => /^1 rows, 1 /.test(document.querySelector('#table-result').textContent));
    }));

test('a turbine test is evaluated after both formulations', () =>
    on(file + '#test', {}, async (page) => {
        await page.click('#test-example');
        assert.match(await page.locator('.totals').textContent(), /7618\.39.*7632\.58.*main steam/);
        assert.equal(await page.locator('.panels svg .process').count(), 6);
        await page.screenshot({ path: `${pictures}acceptance.png`, fullPage: true });
        const text = await page.inputValue('#test-text');
        await type(page, '#test-text', text.replace('166.2', 'oops'));
        await page.click('#test-run');
        assert.match(await page.locator('#test-fault').textContent(), /line 2, column 'first': 'oops' is not a number/i);
        await type(page, '#test-text', '');
        await page.click('#test-run');
        assert.match(await page.locator('#test-fault').textContent(), /empty/);
    }));

test('phone, dark and print, from a server', async () => {
    const server = await serve();
    const address = `http://127.0.0.1:${server.address().port}/`;
    try {
        for (const tab of ['#px=10,0.5', '#chart', '#table', '#test'])
            await on(address + tab, phone, async (page) => {
                if (tab === '#test') await page.click('#test-example');
                await page.waitForTimeout(tab === '#chart' ? 900 : 50);
                const width = await page.evaluate(() => document.documentElement.scrollWidth);
                assert.ok(width <= 360, `${tab} is ${width} pixels wide`);
                await page.screenshot({ path: `${pictures}phone-${tab.slice(1, 3)}.png` });
            });
        for (const tab of ['#px=10,0.5', '#chart'])
            await on(address + tab, { colorScheme: 'dark' }, async (page) => {
                await page.waitForTimeout(tab === '#chart' ? 900 : 50);
                await page.screenshot({ path: `${pictures}dark-${tab.slice(1, 3)}.png` });
            });
        await on(address + '#px=10,0.5', { viewport: { width: 794, height: 1123 } }, async (page) => {
            await page.emulateMedia({ media: 'print' });
            assert.ok(await page.locator('[role=tablist]').isHidden());
            await page.screenshot({ path: `${pictures}print.png` });
        });
    } finally {
        server.close();
    }
});

test('axe-core finds nothing serious, in both themes', async () => {
    const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
    for (const colorScheme of ['light', 'dark'])
        await on(file + '#px=10,0.5', { colorScheme, bypassCSP: true }, async (page) => {
            await page.evaluate(axe);
            for (const tab of ['state', 'chart', 'table', 'test']) {
                await page.click(`#tab-${tab}`);
                if (tab === 'test') await page.click('#test-example');
                const found = await page.evaluate(() => window.axe.run());
                const bad = found.violations.filter((one) => ['serious', 'critical'].includes(one.impact));
                assert.deepEqual(bad.map((one) => `${tab}: ${one.id}: ${one.nodes[0].html}`), []);
            }
        });
});
