// Draws the plan: water or a sketch of crests, the tank, arrows of direction, axes and scales.
import type { Plan, Summary } from '../data/data';
import { degreesText, turnBetween } from '../directions/angles';
import { drawArrow } from '../drawing/arrow';
import { ticks } from '../drawing/axis_ticks';
import { drawColourBar } from '../drawing/colour_bar';
import { colour, scale } from '../drawing/colours';
import { font, haloText } from '../drawing/sharp_canvas';
import type { FieldPicture } from '../field/field_picture';
import { onPaper } from '../page/printing';
import type { View } from '../page/view';
import { crestLines } from './crest_sketch';
import type { MainWave } from './main_wave';
import { drawAxes, drawScaleBar, margins } from './plan_axes';
import { drawTank } from './tank_drawing';
import { fit, type Extent, type Fit, type Place } from './tank_extent';

export interface PlanContent {
  summary: Summary;
  plan: Plan;
  extent: Extent;
  picture: FieldPicture | null;
  wave: MainWave;
  view: View;
}

const strip = 46; // px below the axes, for the scales
const leastHeight = 90; // px, of a narrow flume

export function planHeight(width: number, extent: Extent): number {
  const across = width - margins.left - margins.right;
  const shape = (extent.y[1] - extent.y[0]) / (extent.x[1] - extent.x[0]);
  const most = onPaper() ? 260 : 430; // head, table and plan fit one page
  return Math.round(Math.max(leastHeight, Math.min(most, across * shape))) + margins.top + margins.bottom + strip;
}

export function planFit(width: number, height: number, extent: Extent): Fit {
  const box = {
    x: margins.left,
    y: margins.top,
    width: Math.max(40, width - margins.left - margins.right),
    height: height - margins.top - margins.bottom - strip,
  };
  return fit(extent, box, leastHeight);
}

export function drawPlan(ctx: CanvasRenderingContext2D, width: number, height: number, content: PlanContent, cursor?: Place): void {
  const { plan, extent, picture, view, summary } = content;
  const fitted = planFit(width, height, extent);
  const onPicture = picture !== null;
  if (picture) paintWater(ctx, picture, view, fitted);
  else sketchCrests(ctx, content, fitted);
  drawDirections(ctx, content, fitted);
  ctx.font = font(11);
  drawTank(ctx, plan, fitted.place, { points: summary.points, extent, onPicture });
  if (cursor) drawCursor(ctx, fitted, cursor, onPicture);
  drawAxes(ctx, extent, fitted);
  const line = height - 14;
  const end = drawScaleBar(ctx, fitted, fitted.x, line);
  if (picture) drawHeights(ctx, picture.largest, view.grey, { from: end + 30, to: Math.max(fitted.x + fitted.width, Math.min(width - margins.right, end + 220)), line });
}

function paintWater(ctx: CanvasRenderingContext2D, picture: FieldPicture, view: View, { place }: Fit): void {
  const { x, y } = picture;
  const [left, bottom] = place(x.from, y.from);
  const [right, top] = place(x.from + x.step * (x.count - 1), y.from + y.step * (y.count - 1));
  picture.paint(ctx, view, { x: left, y: top, width: right - left, height: bottom - top });
}

function sketchCrests(ctx: CanvasRenderingContext2D, { plan, extent, wave, view }: PlanContent, fitted: Fit): void {
  ctx.fillStyle = colour('panel');
  ctx.fillRect(fitted.x, fitted.y, fitted.width, fitted.height);
  if (!wave.period || wave.direction === undefined) return;
  const lines = crestLines(plan, extent, { period: wave.period, direction: wave.direction, time: view.time });
  ctx.save();
  ctx.strokeStyle = colour('series-1');
  ctx.globalAlpha = 0.55;
  ctx.lineWidth = 1;
  ctx.beginPath();
  for (const [x1, y1, x2, y2] of lines) {
    ctx.moveTo(...fitted.place(x1, y1));
    ctx.lineTo(...fitted.place(x2, y2));
  }
  ctx.stroke();
  ctx.restore();
}

function drawDirections(ctx: CanvasRenderingContext2D, { wave, picture }: PlanContent, fitted: Fit): void {
  const { at, direction, asked } = wave;
  if (!at || direction === undefined) return;
  const ink = picture ? '#1b1f24' : colour('ink');
  const ground = picture ? '#ffffff' : colour('panel');
  const from = fitted.place(at.x, at.y);
  const reach = (angle: number, length: number): [number, number] => {
    const [px, py] = fitted.place(at.x + Math.cos(angle), at.y + Math.sin(angle));
    const size = Math.hypot(px - from[0], py - from[1]);
    return [from[0] + ((px - from[0]) / size) * length, from[1] + ((py - from[1]) / size) * length];
  };
  const length = Math.max(45, Math.min(90, 0.2 * fitted.width));
  if (asked !== undefined && Math.abs(turnBetween(asked, direction)) > 0.03) {
    drawArrow(ctx, from, reach(asked, length), { ink: colour('series-2'), ground, dash: [6, 4], width: 2 });
  }
  const tip = reach(direction, length);
  drawArrow(ctx, reach(direction, 9), tip, { ink, ground });
  ctx.save();
  ctx.font = font(12, 600);
  ctx.textAlign = tip[0] < from[0] ? 'right' : 'left';
  ctx.textBaseline = 'middle';
  haloText(ctx, degreesText(direction), tip[0] + (tip[0] < from[0] ? -7 : 7), tip[1], ink, ground);
  ctx.restore();
}

function drawCursor(ctx: CanvasRenderingContext2D, fitted: Fit, cursor: Place, onPicture: boolean): void {
  const [x, y] = fitted.place(cursor.x, cursor.y).map((value) => Math.round(value) + 0.5);
  ctx.save();
  ctx.strokeStyle = onPicture ? '#1b1f24' : colour('ink');
  ctx.lineWidth = 1;
  ctx.beginPath();
  ctx.moveTo(x, fitted.y);
  ctx.lineTo(x, fitted.y + fitted.height);
  ctx.moveTo(fitted.x, y);
  ctx.lineTo(fitted.x + fitted.width, y);
  ctx.stroke();
  ctx.restore();
}

function drawHeights(
  ctx: CanvasRenderingContext2D,
  largest: number,
  grey: boolean,
  room: { from: number; to: number; line: number },
): void {
  const width = Math.min(220, room.to - room.from - 14);
  if (width < 80 || !(largest > 0)) return;
  const range = largest * 1000;
  const marks = ticks(-range, range, Math.max(4, width / 45));
  ctx.font = font(11);
  drawColourBar(ctx, {
    x: room.to - width - 14,
    y: room.line - 14,
    width,
    height: 9,
    scale: scale(grey ? 'grey' : 'diverging'),
    from: -range,
    to: range,
    ticks: marks.values.map((value) => ({ value, text: marks.label(value) })),
    title: 'height above still water in mm',
  });
}
