// The plan of the tank with waves in it, at the time that all charts show.
import type { Axis, PageData, Plan } from '../data/data';
import { SharpCanvas } from '../drawing/sharp_canvas';
import { FieldPicture } from '../field/field_picture';
import { chartFrame, element } from '../page/frame';
import type { Page, Part } from '../page/page';
import { mainWave } from './main_wave';
import { drawPlan, planFit, planHeight, type PlanContent } from './plan_drawing';
import { placeText, planCaption } from './plan_words';
import { tankExtent, type Place } from './tank_extent';

export const planPart: Part = async ({ data, view }: Page) => {
  const plan = data.summary.plan ?? bareTank(data);
  if (!plan) return null;
  const content: PlanContent = {
    summary: data.summary,
    plan,
    extent: tankExtent(plan, data.summary.points, data.field),
    picture: data.field ? await FieldPicture.load(data.field) : null,
    wave: mainWave(data.summary),
    view,
  };
  let cursor: Place | undefined;
  const frame = chartFrame({ id: 'plan', title: 'Plan of the tank', caption: '', png: () => chart.picture() });
  const chart = new SharpCanvas(
    frame.body,
    view,
    (width) => planHeight(width, content.extent),
    (ctx, width, height) => drawPlan(ctx, width, height, content, cursor),
  );
  const readout = element('p', 'readout');
  readout.setAttribute('role', 'status');
  frame.section.insertBefore(readout, frame.body.nextSibling);

  const tell = (): void => {
    const width = chart.width || 600;
    const caption = planCaption(content, planFit(width, planHeight(width, content.extent), content.extent).stretch);
    frame.setCaption(caption);
    if (!view.playing) chart.label(`Plan of the tank. ${caption} With the arrow keys a cursor moves over it.`);
    readout.textContent = cursor ? placeText(content, cursor) : '';
  };
  const moveTo = (place: Place | undefined): void => {
    cursor = place;
    chart.redraw();
    tell();
  };
  view.watch(tell);
  tell();
  followPointer(chart, content, moveTo);
  followKeys(chart, content, () => cursor, moveTo);
  return frame.section;
};

function followPointer(chart: SharpCanvas, { extent }: PlanContent, moveTo: (place?: Place) => void): void {
  chart.canvas.addEventListener('pointermove', (event) => {
    const fitted = planFit(chart.width, chart.height, extent);
    const [x, y] = fitted.metres(event.offsetX, event.offsetY);
    const inside = x >= extent.x[0] && x <= extent.x[1] && y >= extent.y[0] && y <= extent.y[1];
    moveTo(inside ? { x, y } : undefined);
  });
  chart.canvas.addEventListener('pointerleave', () => moveTo(undefined));
}

function followKeys(
  chart: SharpCanvas,
  { extent }: PlanContent,
  cursor: () => Place | undefined,
  moveTo: (place?: Place) => void,
): void {
  const moves: Record<string, [number, number]> = {
    ArrowLeft: [-1, 0],
    ArrowRight: [1, 0],
    ArrowUp: [0, 1],
    ArrowDown: [0, -1],
  };
  chart.canvas.tabIndex = 0;
  chart.canvas.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') moveTo(undefined);
    const move = moves[event.key];
    if (!move || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    const share = event.shiftKey ? 0.1 : 0.01;
    const along = (range: [number, number], from: number | undefined, by: number): number => {
      const start = from ?? (range[0] + range[1]) / 2;
      return Math.min(range[1], Math.max(range[0], start + by * share * (range[1] - range[0])));
    };
    const from = cursor();
    moveTo({ x: along(extent.x, from?.x, move[0]), y: along(extent.y, from?.y, move[1]) });
  });
}

// A summary without a plan still has the reach of its field.
function bareTank({ field }: PageData): Plan | null {
  if (!field) return null;
  const reach = ({ from, step, count }: Axis): [number, number] => [from, from + step * (count - 1)];
  return { x: reach(field.x), y: reach(field.y), walls: 'none', profile: { x: [], depth: [] }, banks: [] };
}
