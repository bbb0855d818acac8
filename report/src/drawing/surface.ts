// Heights on a grid, painted into a rectangle.
import type { Scale } from './colours';
import { blend, type Blend } from './cubic';

export interface Rect {
  x: number;
  y: number;
  width: number;
  height: number;
}

// Heights in rows of `columns`; the first row is the lowest on the screen.
export interface Grid {
  heights: Float32Array;
  columns: number;
  rows: number;
}

// `rect` goes from the first point to the last. Colours go from -range to range. NaN is left clear.
export function paintGrid(ctx: CanvasRenderingContext2D, grid: Grid, rect: Rect, scale: Scale, range: number): void {
  const fine = refine(grid);
  const picture = canvasOf(fine, scale, range);
  const box = widened(rect);
  ctx.save();
  ctx.imageSmoothingEnabled = true;
  ctx.imageSmoothingQuality = 'low';
  // From the middle of the first pixel to the middle of the last.
  const inset = (count: number): [number, number] => (count > 1 ? [0.5, count - 1] : [0, 1]);
  const [left, width] = inset(fine.columns);
  const [top, height] = inset(fine.rows);
  ctx.drawImage(picture, left, top, width, height, box.x, box.y, box.width, box.height);
  ctx.restore();
}

// A rectangle that can be seen even if the grid has one column or one row.
function widened(rect: Rect): Rect {
  const least = 8;
  const across = Math.max(0, least - rect.width) / 2;
  const up = Math.max(0, least - rect.height) / 2;
  return { x: rect.x - across, y: rect.y - up, width: rect.width + 2 * across, height: rect.height + 2 * up };
}

// Enough points that the browser's own smoothing between colours does no harm.
function refine(grid: Grid): Grid {
  const factor = Math.max(1, Math.min(16, Math.ceil(240 / Math.max(grid.columns, grid.rows))));
  if (factor === 1) return grid;
  const columns = (grid.columns - 1) * factor + 1;
  const rows = (grid.rows - 1) * factor + 1;
  const across = blends(grid.columns, factor);
  const wide = new Float32Array(columns * grid.rows);
  for (let row = 0; row < grid.rows; ++row) {
    for (let column = 0; column < columns; ++column) {
      wide[row * columns + column] = mix(grid.heights, row * grid.columns, 1, across[column]);
    }
  }
  const up = blends(grid.rows, factor);
  const heights = new Float32Array(columns * rows);
  for (let row = 0; row < rows; ++row) {
    for (let column = 0; column < columns; ++column) heights[row * columns + column] = mix(wide, column, columns, up[row]);
  }
  return { heights, columns, rows };
}

function blends(count: number, factor: number): Blend[] {
  return Array.from({ length: (count - 1) * factor + 1 }, (_, i) => blend(i / factor, count));
}

// A blend of values that are `stride` apart. Values of weight 0 may be NaN.
export function mix(values: ArrayLike<number>, start: number, stride: number, { at, weight }: Blend): number {
  let sum = 0;
  for (let i = 0; i < 4; ++i) {
    if (weight[i] !== 0) sum += weight[i] * values[start + at[i] * stride];
  }
  return sum;
}

let canvas: HTMLCanvasElement | undefined;

function canvasOf({ heights, columns, rows }: Grid, scale: Scale, range: number): HTMLCanvasElement {
  canvas ??= document.createElement('canvas');
  canvas.width = columns;
  canvas.height = rows;
  const image = new ImageData(columns, rows);
  const slope = range > 0 ? 127.5 / range : 0;
  for (let row = 0, pixel = 0; row < rows; ++row) {
    const from = (rows - 1 - row) * columns;
    for (let column = 0; column < columns; ++column, pixel += 4) {
      const height = heights[from + column];
      if (Number.isNaN(height)) continue;
      const entry = 3 * Math.round(Math.min(Math.max(127.5 + height * slope, 0), 255));
      image.data[pixel] = scale[entry];
      image.data[pixel + 1] = scale[entry + 1];
      image.data[pixel + 2] = scale[entry + 2];
      image.data[pixel + 3] = 255;
    }
  }
  canvas.getContext('2d')!.putImageData(image, 0, 0);
  return canvas;
}
