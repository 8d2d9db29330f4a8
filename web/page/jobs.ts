/** Jobs of the page in workers, which are made of the page's own script. */
import type { Chart, PairName, Preset, PropertyName, Window } from 'ktl-steam';

export interface ChartJob {
    readonly kind: 'chart';
    readonly preset: Preset;
    readonly size: readonly [number, number];
    readonly window: Window | null;
}

/** Rows of pixels of a chart, from `from` up to `to`, of width by height pixels. */
export interface PaintJob {
    readonly kind: 'paint';
    readonly x: PropertyName;
    readonly y: PropertyName;
    readonly xLog: boolean;
    readonly yLog: boolean;
    readonly window: Window;
    readonly width: number;
    readonly height: number;
    readonly from: number;
    readonly to: number;
    readonly property: PropertyName;
}

export interface TableJob {
    readonly kind: 'table';
    readonly source: Blob;
    readonly pair: PairName;
    readonly wanted: readonly PropertyName[];
    readonly atmosphere: number;
}

export interface TableResult {
    readonly content: Blob;
    readonly rows: number;
    readonly solved: number;
    /** The first row without a state. */
    readonly bad: { readonly line: number; readonly reason: string } | null;
    /** The header and the first rows of the result. */
    readonly preview: readonly (readonly string[])[];
    readonly seconds: number;
}

export type Job = ChartJob | PaintJob | TableJob;
export type Result = {
    chart: Chart | { readonly error: string };
    paint: Float32Array;
    table: TableResult | { readonly error: string };
};

export type Message = { readonly progress: number } | { readonly done: unknown } | { readonly failed: string };

/** One worker, which does one job after the other. */
export class Jobs {
    private worker: Worker | null = null;
    private queue: Promise<unknown> = Promise.resolve();
    private refuse: ((reason: Error) => void) | null = null;

    constructor(private readonly module: WebAssembly.Module) {}

    run<J extends Job>(job: J, progress?: (share: number) => void): Promise<Result[J['kind']]> {
        const run = this.queue.then(
            () =>
                new Promise<Result[J['kind']]>((resolve, reject) => {
                    const worker = this.started();
                    this.refuse = reject;
                    worker.onmessage = (event: MessageEvent<Message>) => {
                        const message = event.data;
                        if ('progress' in message) progress?.(message.progress);
                        else if ('failed' in message) reject(new Error(message.failed));
                        else resolve(message.done as Result[J['kind']]);
                    };
                    worker.onerror = (event) => reject(new Error(event.message));
                    worker.postMessage(job);
                }),
        );
        this.queue = run.catch(() => undefined);
        return run;
    }

    /** Ends the job that runs; its promise is rejected. */
    cancel(): void {
        this.worker?.terminate();
        this.worker = null;
        this.refuse?.(new Error('cancelled'));
    }

    private started(): Worker {
        if (this.worker) return this.worker;
        const script = document.querySelector('body > script')!.textContent!;
        const address = URL.createObjectURL(new Blob([script], { type: 'text/javascript' }));
        this.worker = new Worker(address);
        this.worker.postMessage(this.module);
        return this.worker;
    }
}
