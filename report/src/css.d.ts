// Styles that a script imports are bundled by esbuild.
declare module '*.css';
