/** What a worker does: charts, colours of pixels, tables. */
import { load, type Ktl } from 'ktl-steam';
import type { Job, Message } from './jobs.js';
import { paint } from './paint.js';
import { computeTable } from './table.js';

/** A worker's global object, of which only these are used. */
interface Scope {
    onmessage: ((event: MessageEvent<WebAssembly.Module | Job>) => void) | null;
    postMessage(message: Message, transfer?: Transferable[]): void;
}

/** Takes the module as the first message, then jobs. */
export function serve(): void {
    const scope = globalThis as unknown as Scope;
    let ktl: Promise<Ktl>;
    scope.onmessage = (event) => {
        if (event.data instanceof WebAssembly.Module) {
            ktl = load(event.data);
            return;
        }
        const job = event.data;
        ktl.then(async (library) => {
            const done = await run(library, job, (share) => scope.postMessage({ progress: share }));
            scope.postMessage({ done }, done instanceof Float32Array ? [done.buffer] : []);
        }).catch((fault: unknown) => scope.postMessage({ failed: String(fault) }));
    };
}

function run(ktl: Ktl, job: Job, progress: (share: number) => void): unknown {
    switch (job.kind) {
        case 'chart':
            return ktl.chart(job.preset, job.size[0], job.size[1], job.window ?? undefined);
        case 'paint':
            return paint(ktl, job);
        case 'table':
            return computeTable(ktl, job, progress);
    }
}
