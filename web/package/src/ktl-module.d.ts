declare module 'ktl-module' {
    /** The module, compressed as .lzma, in base64. */
    const text: string;
    export default text;
}
