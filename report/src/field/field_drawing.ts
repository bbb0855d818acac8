// One chart of the water surface: axes, water, tank, scale bar and the legend of the colours.
import { timeText } from '../data/words';
import { lengthText, roundStep, ticks } from '../drawing/axis_ticks';
import { drawColourBar } from '../drawing/colour_bar';
import { colour, scale, type ScaleKind } from '../drawing/colours';
import { font } from '../drawing/sharp_canvas';
import type { Page } from '../page/page';
import { drawTank } from '../tank/tank_drawing';
import { fit, tankExtent, type Extent, type Fit } from '../tank/tank_extent';
import type { FieldPicture } from './field_picture';

export interface FieldChart {
  page: Page;
  picture: FieldPicture;
  time: number; // s
  kind: ScaleKind;
  range: number; // m
  mark?: { x: number; y: number }; // a ring
  plain?: boolean; // without axes and legend: one of several frames
}

const margin = { left: 58, right: 94, top: 30, bottom: 42 };
const plainMargin = { left: 6, right: 6, top: 24, bottom: 6 };

const least = 96; // pixels across a narrow flume, so that texts have room
const rim = 5; // of light ground around the tank

// How far the chart of a page reaches.
export function fieldExtent({ data }: Page): Extent {
  const { plan, points } = data.summary;
  const grid = data.field!;
  if (plan) return tankExtent(plan, points, grid);
  const ends = (axis: typeof grid.x): [number, number] => [axis.from, axis.from + axis.step * (axis.count - 1)];
  return tankExtent({ x: ends(grid.x), y: ends(grid.y), walls: 'none', profile: { x: [], depth: [] }, banks: [] }, points);
}

// The height that shows the tank in its own shape at a width.
export function fieldHeight(page: Page, width: number, most: number, plain = false): number {
  const around = plain ? plainMargin : margin;
  const { x, y } = fieldExtent(page);
  const across = Math.max(width - around.left - around.right, 40);
  const natural = (across * (y[1] - y[0])) / (x[1] - x[0]);
  return Math.round(Math.min(Math.max(natural, plain ? 40 : least), most) + around.top + around.bottom);
}

export function drawFieldChart(ctx: CanvasRenderingContext2D, width: number, height: number, chart: FieldChart): Fit {
  const around = chart.plain ? plainMargin : margin;
  const { page, picture } = chart;
  const box = {
    x: around.left,
    y: around.top,
    width: Math.max(width - around.left - around.right, 20),
    height: Math.max(height - around.top - around.bottom, 20),
  };
  const extent = fieldExtent(page);
  const fitted = fit(extent, box, chart.plain ? 40 : least);
  const { grey } = page.view;
  paintWater(ctx, fitted, chart);
  ctx.font = font(chart.plain ? 10 : 12);
  const { plan, points } = page.data.summary;
  if (plan) {
    drawTank(ctx, plan, fitted.place, { points, extent, onPicture: true, names: !chart.plain, contours: !chart.plain });
  }
  if (chart.mark) drawRing(ctx, fitted.place(chart.mark.x, chart.mark.y));
  ctx.fillStyle = colour('ink');
  ctx.textAlign = 'left';
  ctx.textBaseline = 'bottom';
  ctx.fillText(timeText(picture.nearest(chart.time), picture.rate), fitted.x - rim, fitted.y - 8);
  if (chart.plain) return fitted;
  drawAxes(ctx, fitted, extent);
  drawScaleBar(ctx, fitted);
  drawLegend(ctx, fitted, width, chart.range, grey ? 'grey' : chart.kind);
  return fitted;
}

// Walls and paddles are dark in both schemes, and so they need a light ground.
function paintWater(ctx: CanvasRenderingContext2D, fitted: Fit, { page, picture, time, kind, range }: FieldChart): void {
  ctx.fillStyle = '#e6e9ed';
  ctx.fillRect(fitted.x - rim, fitted.y - rim, fitted.width + 2 * rim, fitted.height + 2 * rim);
  const end = (axis: typeof picture.x): number => axis.from + axis.step * (axis.count - 1);
  const [left, bottom] = fitted.place(picture.x.from, picture.y.from);
  const [right, top] = fitted.place(end(picture.x), end(picture.y));
  picture.paint(ctx, { time, grey: page.view.grey }, { x: left, y: top, width: right - left, height: bottom - top }, { kind, range });
}

function drawAxes(ctx: CanvasRenderingContext2D, fitted: Fit, extent: Extent): void {
  ctx.save();
  ctx.strokeStyle = ctx.fillStyle = colour('ink');
  ctx.lineWidth = 1;
  const bottom = fitted.y + fitted.height + rim;
  const left = fitted.x - rim;
  const across = ticks(extent.x[0], extent.x[1], Math.max(2, fitted.width / 60));
  const up = ticks(extent.y[0], extent.y[1], Math.max(2, fitted.height / 40));
  ctx.beginPath();
  ctx.textAlign = 'center';
  ctx.textBaseline = 'top';
  for (const value of across.values) {
    const [x] = fitted.place(value, 0);
    ctx.moveTo(x, bottom);
    ctx.lineTo(x, bottom + 5);
    ctx.fillText(across.label(value), x, bottom + 7);
  }
  ctx.fillText('x in m', fitted.x + fitted.width / 2, bottom + 22);
  ctx.textAlign = 'right';
  ctx.textBaseline = 'middle';
  for (const value of up.values) {
    const [, y] = fitted.place(0, value);
    ctx.moveTo(left, y);
    ctx.lineTo(left - 5, y);
    ctx.fillText(up.label(value), left - 8, y);
  }
  ctx.stroke();
  ctx.textAlign = 'center';
  ctx.textBaseline = 'bottom';
  ctx.translate(left - 34, fitted.y + fitted.height / 2);
  ctx.rotate(-Math.PI / 2);
  ctx.fillText(fitted.stretch > 1.01 ? 'y in m, stretched' : 'y in m', 0, 0);
  ctx.restore();
}

// A length of the tank, above its right end.
function drawScaleBar(ctx: CanvasRenderingContext2D, fitted: Fit): void {
  const metres = roundStep(50 / fitted.perMetre);
  const right = fitted.x + fitted.width;
  const left = right - metres * fitted.perMetre;
  const y = fitted.y - 16;
  ctx.strokeStyle = ctx.fillStyle = colour('ink');
  ctx.lineWidth = 2;
  ctx.strokeRect(left, y, right - left, 0);
  ctx.lineWidth = 1;
  ctx.beginPath();
  for (const x of [left, right]) {
    ctx.moveTo(x, y - 4);
    ctx.lineTo(x, y + 4);
  }
  ctx.stroke();
  ctx.textAlign = 'right';
  ctx.textBaseline = 'middle';
  ctx.fillText(lengthText(metres, 1), left - 6, y);
}

function drawLegend(ctx: CanvasRenderingContext2D, fitted: Fit, width: number, range: number, kind: ScaleKind): void {
  const inMm = range < 1;
  const factor = inMm ? 1000 : 1;
  const limit = range * factor;
  const round = ticks(-limit, limit, Math.max(4, fitted.height / 30));
  drawColourBar(ctx, {
    x: Math.min(fitted.x + fitted.width + 18, width - margin.right + 18),
    y: fitted.y,
    width: 14,
    height: fitted.height,
    scale: scale(kind),
    from: -limit,
    to: limit,
    ticks: round.values.map((value) => ({ value, text: round.label(value).replace('-', '−') })),
    title: `elevation in ${inMm ? 'mm' : 'm'}`,
  });
}

function drawRing(ctx: CanvasRenderingContext2D, [x, y]: [number, number]): void {
  for (const [ink, thick] of [['rgba(255, 255, 255, 0.85)', 4], ['#1b1f24', 2]] as const) {
    ctx.beginPath();
    ctx.arc(x, y, 9, 0, 2 * Math.PI);
    ctx.strokeStyle = ink;
    ctx.lineWidth = thick;
    ctx.stroke();
  }
}
