// Words and texts of the page.
import { minus } from '../drawing/axis_ticks';

// "1 file", "3 files".
export function counted(count: number, what: string): string {
  return `${count} ${what}${count === 1 ? '' : 's'}`;
}

// A time with the digits that tell the frames of a rate apart: "32.0 s" at 10 Hz, "0.125 s" at 8 Hz.
export function timeText(time: number, rate: number): string {
  const exact = [0, 1, 2].find((digits) => Math.abs(10 ** digits / rate - Math.round(10 ** digits / rate)) < 1e-6);
  return `${time.toFixed(exact ?? 3)} s`;
}

// "x 6.00 m, y −0.50 m".
export function placeText(x: number, y: number): string {
  return minus(`x ${x.toFixed(2)} m, y ${y.toFixed(2)} m`);
}

// Characters that turn the direction of text. In a name they would reorder the words and numbers around it.
const turning = /[\u202a-\u202e\u2066-\u2069\u200e\u200f\u061c]/g;

// For JSON.parse: texts keep their characters, and those that turn text are seen by their code.
export function withoutTurns(_key: string, value: unknown): unknown {
  return typeof value === 'string' ? value.replace(turning, codeOf) : value;
}

function codeOf(character: string): string {
  return `[U+${character.charCodeAt(0).toString(16).toUpperCase().padStart(4, '0')}]`;
}
