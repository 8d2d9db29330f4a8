// A Chromium for the tests, and pages in it whose faults are collected.
import { createServer } from 'node:http';
import { existsSync, mkdirSync, readFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';

export const out = fileURLToPath(new URL('../../build/web/', import.meta.url));
export const file = `file://${out}ktl.html`;
export const pictures = `${out}pictures/`;
mkdirSync(pictures, { recursive: true });

const program = [process.env.CHROMIUM, '/usr/bin/chromium', '/usr/bin/chromium-browser'].find((path) => path && existsSync(path));

export const launch = () => chromium.launch({ executablePath: program, args: ['--no-sandbox', '--disable-gpu'] });

/** A server of the page alone; ends with close(). */
export function serve() {
    const html = readFileSync(`${out}ktl.html`);
    const server = createServer((_, response) => response.setHeader('content-type', 'text/html').end(html));
    return new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(server)));
}

/** A page at an address, and the list of what went wrong in it. */
export async function open(browser, address, options = {}) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, locale: 'en-GB', ...options });
    const page = await context.newPage();
    const faults = [];
    page.on('pageerror', (fault) => faults.push(String(fault)));
    page.on('console', (message) => {
        if (['error', 'warning'].includes(message.type())) faults.push(message.text());
    });
    page.on('request', (request) => {
        if (!/^(file|data|blob|http:\/\/127)/.test(request.url())) faults.push(`asked for ${request.url()}`);
    });
    await page.goto(address);
    await page.waitForSelector('html[data-ready]');
    return { page, faults, close: () => context.close() };
}
