// Colours: those of the reader's scheme, and the scales of pictures.
import { bytes, distance, polar, type Lab } from './oklab';

// A colour of style.css, as it is now: "ink", "paper", "series-1", ...
export function colour(name: string): string {
  return getComputedStyle(document.documentElement).getPropertyValue('--' + name).trim();
}

// 256 colours as red, green, blue bytes. A table is made once.
export type Scale = Uint8Array; // 768 bytes
export type ScaleKind = 'diverging' | 'sequential' | 'cyclic' | 'grey';

// diverging: dark blue, nearly white, dark orange; equally dark on both sides. sequential: nearly
// white to dark blue. cyclic: equally light, and the last colour is next to the first. grey: dark
// to light, for paper without colours.
export function scale(kind: ScaleKind): Scale {
  let made = tables.get(kind);
  if (!made) {
    made = table(paths[kind]);
    tables.set(kind, made);
  }
  return made;
}

// The colour at a fraction of the scale from 0 to 1, for style properties and canvases.
export function scaleColour(from: Scale, fraction: number): string {
  const entry = 3 * Math.round(255 * Math.min(Math.max(fraction, 0), 1));
  return `rgb(${from[entry]}, ${from[entry + 1]}, ${from[entry + 2]})`;
}

const tables = new Map<ScaleKind, Scale>();

// Each scale is a path through OKLab from 0 to 1. The chromas stay within what screens show. Blue
// and orange differ for all common kinds of colour blindness.
const paths: Record<ScaleKind, (at: number) => Lab> = {
  diverging: (at) => {
    const away = Math.abs(2 * at - 1);
    return polar(0.965 - 0.6 * away, 0.148 * Math.sin(0.76 * Math.PI * away), at < 0.5 ? 258 : 42);
  },
  sequential: (at) => polar(0.97 - 0.67 * at, 0.122 * Math.sin(0.8 * Math.PI * at), 250),
  cyclic: (at) => polar(0.72, 0.115, 360 * (at * 255) / 256),
  grey: (at) => polar(0.27 + 0.71 * at, 0, 0),
};

// Places 256 colours at equal distances along a path.
function table(path: (at: number) => Lab): Scale {
  const steps = 4096;
  const along = new Float64Array(steps + 1);
  for (let i = 1; i <= steps; ++i) along[i] = along[i - 1] + distance(path((i - 1) / steps), path(i / steps));
  const made = new Uint8Array(768);
  for (let entry = 0, i = 1; entry < 256; ++entry) {
    const wanted = (along[steps] * entry) / 255;
    while (i < steps && along[i] < wanted) ++i;
    const part = (wanted - along[i - 1]) / (along[i] - along[i - 1]);
    made.set(bytes(path((i - 1 + part) / steps)), 3 * entry);
  }
  return made;
}
