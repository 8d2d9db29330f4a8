/** The element with that id. Throws if there is none: the page is not whole then. */
export function element<T extends HTMLElement = HTMLElement>(id: string): T {
    const found = document.getElementById(id);
    if (!found) throw new Error(`no element ${id}`);
    return found as T;
}

type Child = Node | string;

/** A new element with attributes and children. */
export function make<K extends keyof HTMLElementTagNameMap>(
    tag: K,
    attributes: Readonly<Record<string, string>> = {},
    ...children: Child[]
): HTMLElementTagNameMap[K] {
    const made = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) made.setAttribute(name, value);
    made.append(...children);
    return made;
}

/** Shows a sentence of fault beside a field, or takes it away if it is empty. */
export function setFault(field: HTMLElement, message: HTMLElement, sentence: string): void {
    message.textContent = sentence;
    message.hidden = sentence === '';
    if (sentence === '') field.removeAttribute('aria-invalid');
    else field.setAttribute('aria-invalid', 'true');
}

/** Offers bytes as a file. */
export function download(name: string, content: Blob): void {
    const address = URL.createObjectURL(content);
    const link = make('a', { href: address, download: name });
    link.click();
    setTimeout(() => URL.revokeObjectURL(address), 10_000);
}

/** Copies a text; an old way for pages that were opened from disk, where the new one may be refused. */
export async function copy(text: string): Promise<void> {
    try {
        await navigator.clipboard.writeText(text);
    } catch {
        const area = make('textarea', { 'aria-hidden': 'true', class: 'away' });
        area.value = text;
        document.body.append(area);
        area.select();
        document.execCommand('copy');
        area.remove();
    }
}

/** Calls work a moment after the last of many calls. */
export function settled(milliseconds: number, work: () => void): () => void {
    let timer = 0;
    return () => {
        clearTimeout(timer);
        timer = window.setTimeout(work, milliseconds);
    };
}

/** A polyline of an SVG path through the points; a point that is not finite interrupts it. */
export function pathThrough(points: readonly (readonly [number, number])[]): string {
    let joined = false;
    return points
        .map(([x, y]) => {
            const finite = Number.isFinite(x) && Number.isFinite(y);
            const step = finite ? `${joined ? 'L' : 'M'}${x.toFixed(1)},${y.toFixed(1)}` : '';
            joined = finite;
            return step;
        })
        .join('');
}
