// What a line chart is given, and how its lines look.
import { colour } from '../drawing/colours';
import type { Stretch } from './stretch';

export interface ChartAxis {
  name: string;
  unit: string;
  text?: (value: number) => string; // of a value, if not its digits
}

// Values are in the unit of the y axis. NaN leaves a gap.
export interface Line {
  name: string;
  values: ArrayLike<number>;
  x?: ArrayLike<number>; // if not those of the chart
  // "area" fills down to the lower edge. "stem" and "post" stand on 0. "dots" are not joined.
  kind?: 'line' | 'area' | 'stem' | 'post' | 'dots' | 'bars';
  shown?: boolean; // at first; true if absent
  plain?: boolean; // its samples are never shown as dots
}

// Lines across the chart, such as limits.
export interface Mark {
  name: string;
  axis: 'x' | 'y';
  at: number[];
  shown?: boolean;
}

export interface LineChartData {
  title: string;
  x: ChartAxis & { values: ArrayLike<number> };
  y: ChartAxis & { log?: boolean; range?: (lowest: number, highest: number) => [number, number] };
  lines: Line[];
  marks?: Mark[];
  labels?: { x: number; y: number; text: string }[];
  stretch: Stretch;
  height?: number; // CSS pixels
}

// Lines differ by colour and by dashes, so that they differ in black and white too.
const dashes = [[], [9, 4], [2, 3], [12, 3, 2, 3]];
const markDashes = [
  [6, 3],
  [2, 2],
  [10, 3, 3, 3],
];
export interface Look {
  colour: string; // a custom property of the style
  dash: number[];
}

export function lineLook(index: number): Look {
  return { colour: `series-${(index % 4) + 1}`, dash: dashes[(index + Math.floor(index / 4)) % 4] };
}

export function markLook(index: number): Look {
  return { colour: index === 0 ? 'bad' : 'faint', dash: markDashes[index % markDashes.length] };
}

export type Palette = Record<string, string>;
const names = [
  'ink',
  'paper',
  'panel',
  'faint',
  'line',
  'bad',
  'accent',
  'series-1',
  'series-2',
  'series-3',
  'series-4',
];

export function palette(): Palette {
  return Object.fromEntries(names.map((name) => [name, colour(name)]));
}

// The colours on white paper, whatever the reader's scheme is.
export function paperPalette(): Palette {
  const root = document.documentElement;
  if (printing()) return palette();
  root.dataset.print = '';
  const made = palette();
  delete root.dataset.print;
  return made;
}

export function printing(): boolean {
  return document.documentElement.dataset.print !== undefined;
}

const dark = matchMedia('(prefers-color-scheme: dark)');
// Changes when the colours do. Reads no style, so that it may be asked at every frame.
export function schemeKey(): string {
  return String(dark.matches);
}
