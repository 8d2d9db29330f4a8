import text from 'ktl-module';
import { decodeLzma } from './lzma.js';

/** What the module exports; web/module has the meaning of each call. */
export interface Exports {
    readonly memory: WebAssembly.Memory;
    _initialize(): void;
    ktl_text(size: number): number;
    ktl_answer(): number;
    ktl_answer_size(): number;
    ktl_columns(): number;
    ktl_block(): number;
    ktl_lists(): number;
    ktl_read(property: number, atmosphere: number): number;
    ktl_state_count(pair: number, a: number, b: number): number;
    ktl_state(pair: number, a: number, b: number, number: number): number;
    ktl_state_if97(pair: number, a: number, b: number): number;
    ktl_batch(pair: number, rows: number, wanted: number): number;
    ktl_find_columns(pair: number, atmosphere: number): number;
    ktl_convert(rows: number): void;
    ktl_compare(scale: number): number;
    ktl_chart(preset: number, width: number, height: number, left: number, right: number, bottom: number, top: number): number;
    ktl_numbers(): number;
    ktl_numbers_size(): number;
}

/** The compiled module, which can be sent to workers. */
export function compileModule(): Promise<WebAssembly.Module> {
    const packed = Uint8Array.from(atob(text), (c) => c.charCodeAt(0));
    return WebAssembly.compile(decodeLzma(packed) as BufferSource);
}

export async function instantiate(module: WebAssembly.Module): Promise<Exports> {
    const ended = (): never => {
        throw new Error('the module of ktl ended');
    };
    const instance = await WebAssembly.instantiate(module, {
        env: { emscripten_notify_memory_growth: () => undefined },
        wasi_snapshot_preview1: { proc_exit: ended },
    });
    const exports = instance.exports as unknown as Exports;
    exports._initialize();
    return exports;
}
