// Two loopers play ping-pong through the application: each ball is posted from
// one looper to the other until the count runs out, then the application quits.

#include <Application.h>
#include <Looper.h>
#include <Message.h>
#include <Messenger.h>

#include <cstdio>

enum {
	kBall = 'ball',
	kGameOver = 'over'
};

class Player : public BLooper {
public:
	explicit Player(const char* name) : BLooper(name) {}

	void SetPartner(BMessenger partner) { fPartner = partner; }

	void MessageReceived(BMessage* message) override
	{
		if (message->what != kBall) {
			BLooper::MessageReceived(message);
			return;
		}
		int32 hits = message->GetInt32("hits", 0);
		printf("%s hits the ball (%d to go)\n", Name(), hits);
		if (hits == 0) {
			be_app_messenger.SendMessage(kGameOver);
			return;
		}
		BMessage ball(kBall);
		ball.AddInt32("hits", hits - 1);
		fPartner.SendMessage(&ball);
	}

private:
	BMessenger fPartner;
};

class PingPongApp : public BApplication {
public:
	PingPongApp() : BApplication("application/x-vnd.Vellum-Loopers") {}

	void ReadyToRun() override
	{
		fPing = new Player("ping");
		fPong = new Player("pong");
		fPing->SetPartner(BMessenger(fPong));
		fPong->SetPartner(BMessenger(fPing));
		fPing->Run();
		fPong->Run();

		BMessage serve(kBall);
		serve.AddInt32("hits", 9);
		fPing->PostMessage(&serve);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kGameOver) {
			printf("game over\n");
			PostMessage(B_QUIT_REQUESTED);
			return;
		}
		BApplication::MessageReceived(message);
	}

	bool QuitRequested() override
	{
		for (BLooper* player : {fPing, fPong}) {
			if (player->Lock())
				player->Quit();
		}
		return true;
	}

private:
	Player* fPing = nullptr;
	Player* fPong = nullptr;
};

int
main()
{
	PingPongApp app;
	app.Run();
	return 0;
}
