// Builds what is far down the page when it comes near, or when the browser has nothing else to do,
// so that the first picture does not wait for it and print still finds it.
interface Job {
  host: HTMLElement;
  build: () => Promise<void>;
}

const waiting = new Map<Element, Job>();
let last: Promise<void> = Promise.resolve();
let planned = false;
const near = new IntersectionObserver(
  (entries) => {
    for (const entry of entries) if (entry.isIntersecting) void start(waiting.get(entry.target));
  },
  { rootMargin: '600px' },
);

export function whenNear(host: HTMLElement, build: () => Promise<void>): void {
  waiting.set(host, { host, build });
  near.observe(host);
  plan();
}

// Builds all that is left, and waits until it is there.
export async function buildAll(): Promise<void> {
  for (const job of [...waiting.values()]) await start(job);
  await last;
}

async function start(job: Job | undefined): Promise<void> {
  if (!job || !waiting.delete(job.host)) return;
  near.unobserve(job.host);
  const done = build(job);
  last = Promise.all([last, done]).then(() => undefined);
  return done;
}

async function build({ host, build }: Job): Promise<void> {
  try {
    await build();
  } catch (error) {
    const message = document.createElement('p');
    message.className = 'failure';
    message.textContent = `A part of this page could not be drawn: ${(error as Error).message}`;
    host.replaceChildren(message);
    console.error(error);
  }
}

// One at a time, when the page has been seen.
function plan(): void {
  if (planned) return;
  planned = true;
  const idle = window.requestIdleCallback ?? ((act: () => void) => window.setTimeout(act, 200));
  const next = async (): Promise<void> => {
    planned = false;
    const [job] = waiting.values();
    if (!job) return;
    await start(job);
    plan();
  };
  idle(() => void next());
}
