// Draws the heat map of a bank: paddles by time, with axes and colour bar.
import type { Palette } from '../charts/chart_types';
import { ticks } from '../drawing/axis_ticks';
import type { Scale } from '../drawing/colours';
import { bounds, paddleNumber, type BankData } from './bank_data';
import { mapCells } from './map_cells';

export interface MapBox {
  left: number; // CSS pixels, of the cells
  top: number;
  width: number;
  height: number;
  all: number; // height with axes
}

export function mapBox(bank: BankData, width: number): MapBox {
  const height = Math.min(420, Math.max(56, 11 * bank.of.paddles.length));
  return { left: 58, top: 10, width: Math.max(20, width - 58 - 92), height, all: height + 56 };
}

export interface MapLook {
  palette: Palette;
  scale: Scale;
  ratio: number; // pixels for each CSS pixel
}

// Origin and size are those of the canvas context, scaled to CSS pixels.
export function drawMap(
  ctx: CanvasRenderingContext2D,
  bank: BankData,
  box: MapBox,
  from: number,
  to: number,
  look: MapLook,
): void {
  const cells = cellPicture(bank, box, from, to, look);
  ctx.imageSmoothingEnabled = false;
  ctx.drawImage(cells, box.left, box.top, box.width, box.height);
  ctx.strokeStyle = look.palette.faint;
  ctx.lineWidth = 1;
  ctx.strokeRect(box.left - 0.5, box.top - 0.5, box.width + 1, box.height + 1);
  ctx.font = "12px system-ui, 'Liberation Sans', Arial, sans-serif";
  ctx.fillStyle = look.palette.ink;
  drawAxes(ctx, bank, box, from, to);
  drawBar(ctx, bank, box, look);
}

function cellPicture(
  bank: BankData,
  box: MapBox,
  from: number,
  to: number,
  { scale, ratio }: MapLook,
): HTMLCanvasElement {
  const rows = bank.of.paddles.length;
  const across = Math.max(1, Math.round(box.width * ratio));
  // A whole number of pixels in each row, unless rows are narrower than a pixel.
  const tall = Math.max(1, Math.round((box.height * ratio) / rows));
  const up = Math.min(rows, Math.round(box.height * ratio));
  // A sample stands for the times that are nearest to it.
  const cells = mapCells(bank.signals, from * bank.of.rate + 0.5, to * bank.of.rate + 0.5, across, up);
  const canvas = document.createElement('canvas');
  canvas.width = across;
  canvas.height = up * tall;
  const ctx = canvas.getContext('2d')!;
  const picture = ctx.createImageData(across, up * tall);
  const { step } = bank.signals;
  const [low, high] = bounds(bank).map((limit) => limit / step);
  const half = bank.peak > 0 ? 127.5 / (bank.peak / step) : 0;
  for (let j = 0; j < up; ++j) {
    for (let i = 0; i < across; ++i) {
      const count = cells[j * across + i];
      if (count === -32768) continue;
      const beyond = count > high + 1 || count < low - 1;
      const index = 3 * Math.min(255, Math.max(0, Math.round(127.5 + count * half)));
      for (let y = 0; y < tall; ++y) {
        const at = 4 * (((up - 1 - j) * tall + y) * across + i);
        // Black and yellow in turn, which no scale has.
        const yellow = beyond && (y >> 1) % 2 === 0;
        picture.data[at] = beyond ? (yellow ? 255 : 0) : scale[index];
        picture.data[at + 1] = beyond ? (yellow ? 220 : 0) : scale[index + 1];
        picture.data[at + 2] = beyond ? 0 : scale[index + 2];
        picture.data[at + 3] = 255;
      }
    }
  }
  ctx.putImageData(picture, 0, 0);
  return canvas;
}

function drawAxes(ctx: CanvasRenderingContext2D, bank: BankData, box: MapBox, from: number, to: number): void {
  const bottom = box.top + box.height;
  ctx.textAlign = 'center';
  ctx.textBaseline = 'top';
  const time = ticks(from, to, Math.max(2, box.width / 80));
  for (const value of time.values) {
    const x = box.left + ((value - from) / (to - from)) * box.width;
    ctx.fillRect(x, bottom + 1, 1, 5);
    ctx.fillText(time.label(value), x, bottom + 8);
  }
  ctx.fillText('time [s]', box.left + box.width / 2, bottom + 26);
  ctx.textAlign = 'right';
  ctx.textBaseline = 'middle';
  const rows = bank.of.paddles.length;
  const number = (row: number) => paddleNumber(bank, bank.of.paddles[row]);
  const named = new Set(
    ticks(number(0), number(rows - 1), Math.min(rows, box.height / 24)).values.map((value) =>
      nearestRow(rows, number, value),
    ),
  );
  for (const row of named) {
    const y = bottom - ((row + 0.5) / rows) * box.height;
    ctx.fillRect(box.left - 6, y, 5, 1);
    ctx.fillText(String(number(row)), box.left - 9, y);
  }
  upright(ctx, 'paddle', 10, box.top + box.height / 2);
}

function nearestRow(rows: number, number: (row: number) => number, wanted: number): number {
  let best = 0;
  for (let row = 1; row < rows; ++row) if (Math.abs(number(row) - wanted) < Math.abs(number(best) - wanted)) best = row;
  return best;
}

function drawBar(ctx: CanvasRenderingContext2D, bank: BankData, box: MapBox, { scale, palette }: MapLook): void {
  const left = box.left + box.width + 14;
  const { factor, name } = bank.unit;
  for (let i = 0; i < 256; ++i) {
    ctx.fillStyle = `rgb(${scale[3 * i]}, ${scale[3 * i + 1]}, ${scale[3 * i + 2]})`;
    const y = box.top + box.height * (1 - (i + 1) / 256);
    ctx.fillRect(left, y, 14, box.height / 256 + 0.6);
  }
  ctx.strokeStyle = palette.faint;
  ctx.strokeRect(left - 0.5, box.top - 0.5, 15, box.height + 1);
  ctx.fillStyle = palette.ink;
  ctx.textAlign = 'left';
  const peak = bank.peak * factor || 1;
  const marks = ticks(-peak, peak, Math.max(3, Math.min(8, box.height / 28)));
  for (const value of marks.values) {
    const y = box.top + box.height * (0.5 - value / peak / 2);
    ctx.fillRect(left + 15, y, 4, 1);
    ctx.fillText(marks.label(value), left + 22, y);
  }
  upright(ctx, box.height < 100 ? name : `position [${name}]`, box.left + box.width + 84, box.top + box.height / 2);
}

function upright(ctx: CanvasRenderingContext2D, text: string, x: number, y: number): void {
  ctx.save();
  ctx.translate(x, y);
  ctx.rotate(-Math.PI / 2);
  ctx.textAlign = 'center';
  ctx.fillText(text, 0, 0);
  ctx.restore();
}
